#pragma once

#include "failing_calls.h"

#include <plix/platform/base/NSLog.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>

#include <functional>
#include <vector>

namespace plix {

/// Does one thing again and again while its first call of a kind fails, then its second, and so on until none is left to fail, and
/// looks after each time whether something is left behind.
class FailingTest : public HeadlessTest {
protected:
    using Made = std::vector<Ref<NSObject>>;

    FailingTest();
    ~FailingTest() override;

    /// What it makes that shall be let go only when nothing fails any more goes into the vector. Answers how many calls there were
    /// to fail.
    long failEach(Call, std::function<void(Made&)> const& operation);

    std::vector<std::string> log;
    TestFolder folder;

private:
    void letGo(Made&);

    LogSink m_sink;
};

}
