#pragma once

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {

/// One window of rows, each 20 points high, whose content covers (100, 100) to (500, 400) of the screen.
class RowsWindowTest : public DesktopTest {
protected:
    explicit RowsWindowTest(std::vector<std::string> const& arguments = {})
        : app(start("windows", {}, arguments))
    {
    }
    void SetUp() override
    {
        moveMouse(1200, 900);
        app.say("window list 100 624 400 300");
        app.say("front list");
        app.expect("key list");
        app.catchUp();
    }
    Application& app;
};

}
