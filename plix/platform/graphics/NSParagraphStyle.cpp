#include <plix/platform/graphics/NSParagraphStyle.h>

#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

#include <algorithm>
#include <functional>

namespace plix {

namespace {

constexpr float defaultTabDistance = 28;
constexpr int defaultTabCount = 12;

std::vector<NSTextTab> const& defaultTabStops()
{
    static auto const& s_stops = *[] {
        auto* stops = new std::vector<NSTextTab>;
        for (int i = 1; i <= defaultTabCount; ++i)
            stops->push_back({ defaultTabDistance * static_cast<float>(i), NSLeftTabStopType });
        return stops;
    }();
    return s_stops;
}

}

PLIX_DESCRIBE(NSParagraphStyle)
{
}

Ref<NSParagraphStyle> NSParagraphStyle::defaultParagraphStyle()
{
    static auto const& s_style = *new Ref<NSParagraphStyle>(make<NSParagraphStyle>());
    return s_style;
}

bool NSParagraphStyle::init()
{
    m_layout.tabStops = defaultTabStops();
    return true;
}

bool NSParagraphStyle::init(NSParagraphStyle const& other)
{
    m_layout = other.m_layout;
    return true;
}

bool NSParagraphStyle::init(NSCoder& coder)
{
    if (!NSParagraphStyle::init())
        return false;
    coder.read("alignment", [&](ObjectValue const& value) { m_layout.alignment = static_cast<NSTextAlignment>(value.intValue()); });
    coder.read("lineBreakMode",
        [&](ObjectValue const& value) { m_layout.lineBreakMode = static_cast<NSLineBreakMode>(value.intValue()); });
    coder.read("baseWritingDirection",
        [&](ObjectValue const& value) { m_layout.baseWritingDirection = static_cast<NSWritingDirection>(value.intValue()); });
    coder.read("lineSpacing", [&](ObjectValue const& value) { m_layout.lineSpacing = value.floatValue(); });
    coder.read("paragraphSpacing", [&](ObjectValue const& value) { m_layout.paragraphSpacing = value.floatValue(); });
    coder.read("paragraphSpacingBefore", [&](ObjectValue const& value) { m_layout.paragraphSpacingBefore = value.floatValue(); });
    coder.read("headIndent", [&](ObjectValue const& value) { m_layout.headIndent = value.floatValue(); });
    coder.read("firstLineHeadIndent", [&](ObjectValue const& value) { m_layout.firstLineHeadIndent = value.floatValue(); });
    coder.read("tailIndent", [&](ObjectValue const& value) { m_layout.tailIndent = value.floatValue(); });
    coder.read("minimumLineHeight", [&](ObjectValue const& value) { m_layout.minimumLineHeight = value.floatValue(); });
    coder.read("maximumLineHeight", [&](ObjectValue const& value) { m_layout.maximumLineHeight = value.floatValue(); });
    coder.read("lineHeightMultiple", [&](ObjectValue const& value) { m_layout.lineHeightMultiple = value.floatValue(); });
    coder.read("defaultTabInterval", [&](ObjectValue const& value) { m_layout.defaultTabInterval = value.floatValue(); });
    coder.read("tabStops", [&](ObjectValue const& value) {
        if (!value.array())
            return;
        m_layout.tabStops.clear();
        auto const& tabs = *value.array();
        for (std::size_t i = 0; i + 1 < tabs.size(); i += 2)
            m_layout.tabStops.push_back({ tabs[i].floatValue(), static_cast<NSTextTabType>(tabs[i + 1].intValue()) });
    });
    return true;
}

void NSParagraphStyle::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_layout.alignment, "alignment");
    coder.encodeInt(m_layout.lineBreakMode, "lineBreakMode");
    coder.encodeInt(m_layout.baseWritingDirection, "baseWritingDirection");
    coder.encodeDouble(m_layout.lineSpacing, "lineSpacing");
    coder.encodeDouble(m_layout.paragraphSpacing, "paragraphSpacing");
    coder.encodeDouble(m_layout.paragraphSpacingBefore, "paragraphSpacingBefore");
    coder.encodeDouble(m_layout.headIndent, "headIndent");
    coder.encodeDouble(m_layout.firstLineHeadIndent, "firstLineHeadIndent");
    coder.encodeDouble(m_layout.tailIndent, "tailIndent");
    coder.encodeDouble(m_layout.minimumLineHeight, "minimumLineHeight");
    coder.encodeDouble(m_layout.maximumLineHeight, "maximumLineHeight");
    coder.encodeDouble(m_layout.lineHeightMultiple, "lineHeightMultiple");
    coder.encodeDouble(m_layout.defaultTabInterval, "defaultTabInterval");
    ObjectValue::Array tabs;
    for (auto const& tab : m_layout.tabStops) {
        tabs.emplace_back(tab.location);
        tabs.emplace_back(static_cast<int>(tab.type));
    }
    coder.encodeObject(std::move(tabs), "tabStops");
}

Ref<NSMutableParagraphStyle> NSParagraphStyle::mutableCopy() const
{
    return make<NSMutableParagraphStyle>(*this);
}

bool NSParagraphStyle::isEqual(NSObject const* other) const
{
    if (this == other)
        return true;
    auto const* style = dynamic_cast<NSParagraphStyle const*>(other);
    return style && style->m_layout == m_layout;
}

std::size_t NSParagraphStyle::hash() const
{
    auto const number = std::hash<float> {}(m_layout.headIndent + m_layout.lineSpacing + m_layout.firstLineHeadIndent);
    return number ^ static_cast<std::size_t>(m_layout.alignment * 8 + m_layout.lineBreakMode);
}

void NSParagraphStyle::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<NSParagraphStyle&>(fresh).m_layout = m_layout;
}

}
