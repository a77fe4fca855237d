#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

struct GuideProgram {
    char const* name;
    int (*main)();
};

#include "guide_programs.inc"

namespace {

using namespace plix;

std::string textOf(std::string const& path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// What the page says that its program prints.
std::string promisedOutput(std::string const& page)
{
    std::smatch block;
    return std::regex_search(page, block, std::regex("```text\n([^`]*)```")) ? block[1].str() : "";
}

/// Ends a program when it waits for the first time, after a look at its frontmost window.
class Machine : public HeadlessTest {
public:
    explicit Machine(float scale)
        : HeadlessTest(scale)
    {
        machine().headlessEvents().whenIdle([this] {
            auto const windows = app().orderedWindows();
            if (!windows.empty()) {
                windows.front()->displayIfNeeded();
                m_picture = windows.front()->snapshot();
            }
            app().terminate(nullptr);
        });
    }
    void TestBody() override { }

    Ref<NSBitmapImageRep> picture() const { return m_picture; }

private:
    Ref<NSBitmapImageRep> m_picture;
};

class Guide : public testing::TestWithParam<GuideProgram> {
protected:
    std::string pageText() const { return textOf(std::string(PLIX_GUIDE "/") + GetParam().name + ".md"); }
};

TEST_P(Guide, HasAPageForTheProgram)
{
    EXPECT_NE(pageText(), "");
}

TEST_P(Guide, ShowsWhatTheProgramShows)
{
    for (float const scale : { 1.0F, 2.0F }) {
        Machine const machine(scale);
        testing::internal::CaptureStdout();
        int const status = GetParam().main();
        auto const printed = testing::internal::GetCapturedStdout();

        EXPECT_EQ(status, 0);
        EXPECT_EQ(printed, promisedOutput(pageText()));
        auto const name = std::string("guide/") + GetParam().name + (scale == 2 ? "@2x" : "");
        if (machine.picture())
            EXPECT_TRUE(matchesReference(Pixels(machine.picture()), name));
        else
            EXPECT_NE(printed, "") << "neither shows nor prints anything";
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, Guide, testing::ValuesIn(guidePrograms),
    [](testing::TestParamInfo<GuideProgram> const& program) { return std::string(program.param.name); });

}
