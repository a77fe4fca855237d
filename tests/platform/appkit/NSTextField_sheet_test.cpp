#include <tests/support/TextTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/theme_palette.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/appearance.h>

namespace plix {
namespace {

/// Fields while they are edited, each in a window of its own.
class EditedFields : public TextTest, public testing::WithParamInterface<Appearance> {
protected:
    void SetUp() override
    {
        setCurrentAppearance(GetParam());
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 240, 120 });
        field = addField({ 20, 80, 200, 22 }, "The quick brown fox");
        round = addField({ 20, 48, 200, 22 }, "Round");
        round->setBezelStyle(NSTextFieldRoundedBezel);
        placeholder = addField({ 20, 16, 200, 22 });
        static_cast<NSTextFieldCell*>(placeholder->cell())->setPlaceholderString("Placeholder");
    }
    void TearDown() override { setCurrentAppearance(Appearance::light); }
    testing::AssertionResult looksLike(std::string const& what)
    {
        pump();
        auto const name = std::string("appkit/edited_") + what + (GetParam() == Appearance::dark ? "_dark" : "_light");
        return matchesReference(window->snapshot(), name);
    }

    Ref<NSTextField> round;
    Ref<NSTextField> placeholder;
};

TEST_P(EditedFields, LookAsTheirReferencesShow)
{
    window->makeKeyWindow();
    window->makeFirstResponder(field.get());
    editor().setSelectedRange({ 4, 5 });
    EXPECT_TRUE(looksLike("selection"));
    window->makeFirstResponder(round.get());
    editor().setSelectedRange({ 5, 0 });
    person().preedit("ing", 3);
    EXPECT_TRUE(looksLike("marked"));
    window->makeFirstResponder(placeholder.get());
    EXPECT_TRUE(looksLike("empty"));
    window->makeFirstResponder(field.get());
    person().focusNothing();
    EXPECT_TRUE(looksLike("inactive"));
}

TEST_P(EditedFields, TextCanBeReadOnEverySelection)
{
    auto const text = NSColor::controlTextColor()->components();
    EXPECT_GE(contrastRatio(text, NSColor::selectedTextBackgroundColor()->components()), 4.5F);
    EXPECT_GE(contrastRatio(text, NSColor::secondarySelectedControlColor()->components()), 4.5F);
    EXPECT_GE(contrastRatio(text, NSColor::textBackgroundColor()->components()), 4.5F);
}

INSTANTIATE_TEST_SUITE_P(Appearances, EditedFields, testing::Values(Appearance::light, Appearance::dark),
    [](auto const& appearance) { return appearance.param == Appearance::dark ? "Dark" : "Light"; });

}
}
