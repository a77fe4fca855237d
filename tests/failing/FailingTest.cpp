#include "FailingTest.h"

#include <plix/platform/base/living_objects.h>

#include <cstdio>
#include <new>

namespace plix {

FailingTest::FailingTest()
    : m_sink(installLogSink([this](std::string_view line) { log.emplace_back(line); }))
{
}

FailingTest::~FailingTest()
{
    installLogSink(m_sink);
}

void FailingTest::letGo(Made& made)
{
    for (auto const& window : app().windows())
        window->close();
    made.clear();
    pump();
}

long FailingTest::failEach(Call call, std::function<void(Made&)> const& operation)
{
    // What is made once and kept is there before anything fails.
    for (int time = 0; time < 3; ++time) {
        Made made;
        log.clear();
        operation(made);
        letGo(made);
    }
    auto const usualLines = log.size();
    auto const objects = livingObjects();
    auto const files = openFiles();
    for (long nth = 1;; ++nth) {
        bool hasFailed = false;
        Made made;
        log.clear();
        {
            Failing const failing(call, nth);
            try {
                operation(made);
            } catch (std::bad_alloc const&) {
                EXPECT_EQ(call, Call::allocate);
            }
            hasFailed = failing.hasFailed();
        }
        letGo(made);
        EXPECT_LE(log.size(), usualLines + 1) << "call " << nth << ": " << (log.empty() ? "" : log.back());
        EXPECT_EQ(livingObjects(), objects) << "call " << nth;
        EXPECT_EQ(openFiles(), files) << "call " << nth;
        if (!hasFailed) {
            std::printf("%ld calls\n", nth - 1);
            return nth - 1;
        }
        if (HasFailure())
            return nth;
    }
}

}
