#include <plix/platform/graphics/NSParagraphStyle.h>

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
