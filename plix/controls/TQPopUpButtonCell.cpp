#include <plix/controls/TQPopUpButtonCell.h>

#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {

namespace {

constexpr float roomForArrows = 10;

}

PLIX_DESCRIBE(TQPopUpButtonCell)
{
}

TQPopUpButtonCell::TQPopUpButtonCell() = default;
TQPopUpButtonCell::~TQPopUpButtonCell() = default;

bool TQPopUpButtonCell::init()
{
    return TQPopUpButtonCell::init("", false);
}

bool TQPopUpButtonCell::init(std::string_view title, bool pullsDown)
{
    if (!Base::init(title, pullsDown))
        return false;
    m_displayAttributedString = make<NSAttributedString>("");
    return true;
}

bool TQPopUpButtonCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_displayAttributedString = make<NSAttributedString>("");
    return true;
}

Ref<NSAttributedString> TQPopUpButtonCell::displayAttributedString() const
{
    return m_displayAttributedString;
}

void TQPopUpButtonCell::setDisplayAttributedString(Ref<NSAttributedString> const& text)
{
    m_displayAttributedString = text;
}

void TQPopUpButtonCell::drawInteriorWithFrame(Rect frame, NSView&)
{
    // Through the accessor, so that a subclass may supply the string.
    if (auto const text = displayAttributedString())
        text->drawInRect({ frame.x, frame.y, frame.width - roomForArrows, frame.height });
}

Rect TQPopUpButtonCell::drawTitle(NSAttributedString const&, Rect frame, NSView&)
{
    Attributes const attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(11) },
        { NSForegroundColorAttributeName, NSColor::whiteColor() } };
    make<NSAttributedString>("Test", attributes)->drawInRect(frame);
    return frame;
}

void TQPopUpButtonCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<TQPopUpButtonCell&>(fresh).m_displayAttributedString = m_displayAttributedString;
}

}
