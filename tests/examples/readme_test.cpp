#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

namespace plix {

// The main() of the program in README.md.
int readmeMain();

namespace {

class ReadmeTest : public HeadlessTest {
protected:
    void SetUp() override { }
};

TEST_F(ReadmeTest, ItsProgramShowsTheGreeting)
{
    int ink = 0;
    std::string title;
    person().then([&] {
        pump();
        auto const window = app().windows().at(0);
        title = window->title();
        ink = countPixels(hostWindow(*window)->lockPixels(), colors::black, 0.2F);
        app().stop(nullptr);
    });
    EXPECT_EQ(readmeMain(), 0);
    EXPECT_EQ(title, "Greeting");
    EXPECT_GT(ink, 10);
}

}
}
