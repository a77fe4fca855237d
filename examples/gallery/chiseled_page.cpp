#include "chiseled_page.h"
#include "EngravedPage.h"

#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <cmath>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

constexpr float columnWidth = 104;
constexpr float buttonHeight = 20;

enum class State { idle, hovered, pressed, disabled, inactive, inactiveDisabled };

constexpr std::pair<State, char const*> states[] {
    { State::idle, "Normal" },
    { State::hovered, "Hovered" },
    { State::pressed, "Pressed" },
    { State::disabled, "Disabled" },
    { State::inactive, "Inactive" },
    { State::inactiveDisabled, "Inactive, disabled" },
};

/// Stays in the state that it was put in.
class Sample final : public PLIXChiseledTextPopUpButton {
public:
    using PLIXChiseledTextPopUpButton::init;
    void UpdateTrackingRect() override { }
    void viewDidMoveToWindow() override { }
    NSView* hitTest(Point) override { return nullptr; }
};

void putOn(State state, PLIXChiseledTextPopUpButton& button)
{
    if (state == State::inactive || state == State::inactiveDisabled)
        button.deactivate(nullptr);
    if (state == State::hovered)
        button.setImage(button.ConstructMouseOverImage());
    button.cell()->setHighlighted(state == State::pressed);
    button.setEnabled(state != State::disabled && state != State::inactiveDisabled);
}

void center(PLIXChiseledTextPopUpButton& button, float x)
{
    auto const size = button.frame().size();
    button.setFrameOrigin(
        { std::floor(x + (columnWidth - size.width) / 2), std::floor((EngravedPage::bandHeight - size.height) / 2) });
}

void addStates(EngravedPage& page, std::string_view caption, float level)
{
    auto& band = page.addBand(caption, level);
    float x = 0;
    for (auto const& [state, name] : states) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->setTitle("Options");
        center(*button, x);
        putOn(state, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

void addTitles(EngravedPage& page)
{
    constexpr std::pair<char const*, State> titles[] {
        { "A", State::hovered },
        { "Longer title", State::hovered },
        { "Ärger über", State::hovered },
        { "Сегодня", State::hovered },
        { "", State::hovered },
        { "", State::pressed },
    };
    auto& band = page.addBand("Titles", plainGround);
    float x = 0;
    for (auto const& [title, state] : titles) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->setTitle(title);
        center(*button, x);
        putOn(state, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

void addSizes(EngravedPage& page)
{
    auto& band = page.addBand("Height to fit", plainGround);
    float x = 0;
    for (float const size : { 9.0F, 11.0F, 13.0F, 15.0F, 18.0F }) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->SetSizeHeightToFit(true);
        button->setFont(NSFont::boldSystemFontOfSize(size));
        button->setTitle("Size");
        center(*button, x);
        putOn(State::hovered, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

/// With a menu; the title becomes that of the chosen item.
void addLive(EngravedGround& band, float x, long anchor)
{
    auto const button
        = make<PLIXChiseledTextPopUpButton>(Rect { x, (EngravedPage::bandHeight - buttonHeight) / 2, 80, buttonHeight });
    button->SetFrameAnchorMask(anchor);
    for (auto const* title : { "Today", "This week", "In the last twelve months" }) {
        auto const item = button->addItemWithTitle(title);
        item->setActionFunction([weak = Weak<PLIXChiseledTextPopUpButton>(button)](NSObject* sender) {
            if (auto const live = weak.ref())
                live->selectItemAtIndex(live->menu()->indexOfItem(static_cast<NSMenuItem&>(*sender)));
        });
    }
    button->selectItemAtIndex(1);
    band.addSubview(*button);
}

}

Ref<NSView> makeChiseledPage()
{
    auto page = make<EngravedPage>(static_cast<long>(std::size(states)), columnWidth);
    page->addHeading("Pop-up buttons with engraved titles");
    std::vector<char const*> names;
    for (auto const& state : states)
        names.push_back(state.second);
    page->addColumnNames(names);
    page->addSystems(addStates);
    addTitles(*page);
    addSizes(*page);
    page->skip(20);
    page->addHeading("To be tried");
    auto& band = page->addBand("Right, left edge", plainGround);
    addLive(band, 180, 1);
    addLive(band, 360, 0);
    page->sizeToBands();
    return page;
}

}
