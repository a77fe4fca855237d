#include <plix/platform/graphics/NSAttributedString.h>

#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <algorithm>
#include <functional>

namespace plix {

namespace {

std::shared_ptr<Attributes const> const& noAttributes()
{
    static auto const& s_none = *new std::shared_ptr<Attributes const>(std::make_shared<Attributes const>());
    return s_none;
}

bool isSameValue(ObjectValue const* a, ObjectValue const* b)
{
    return a == b || (a && b && *a == *b);
}

ObjectValue const* find(Attributes const& attributes, std::string_view name)
{
    auto const found = attributes.find(std::string(name));
    return found == attributes.end() ? nullptr : &found->second;
}

}

PLIX_DESCRIBE(NSAttributedString)
{
}

bool NSAttributedString::init()
{
    return true;
}

bool NSAttributedString::init(std::string_view text)
{
    return init(text, {});
}

bool NSAttributedString::init(std::string_view text, Attributes const& attributes)
{
    m_text = validUTF8(text);
    if (!m_text.empty())
        m_runs.push_back({ length(), attributes.empty() ? noAttributes() : std::make_shared<Attributes const>(attributes) });
    return true;
}

bool NSAttributedString::init(NSAttributedString const& other)
{
    m_text = other.m_text;
    m_runs = other.m_runs;
    m_positions = other.m_positions;
    return true;
}

bool NSAttributedString::init(NSCoder& coder)
{
    auto const text = coder.decodeStringForKey("string");
    init(std::string_view(text));
    auto const runs = coder.decodeObjectForKey("runs");
    if (m_text.empty() || !runs.array())
        return true;
    // Lengths and attributes in turn; what they leave uncovered has no attributes.
    std::vector<Run> decoded;
    long rest = length();
    for (std::size_t i = 0; i + 1 < runs.array()->size() && rest > 0; i += 2) {
        long const runLength = std::clamp(static_cast<long>((*runs.array())[i].integerValue()), 0L, rest);
        auto const* attributes = (*runs.array())[i + 1].dictionary();
        if (runLength == 0)
            continue;
        decoded.push_back({ runLength, attributes ? std::make_shared<Attributes const>(*attributes) : noAttributes() });
        rest -= runLength;
    }
    if (rest > 0)
        decoded.push_back({ rest, noAttributes() });
    m_runs = std::move(decoded);
    return true;
}

void NSAttributedString::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_text, "string");
    ObjectValue::Array runs;
    for (auto const& run : m_runs) {
        runs.emplace_back(run.length);
        runs.emplace_back(*run.attributes);
    }
    coder.encodeObject(std::move(runs), "runs");
}

void NSAttributedString::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<NSAttributedString&>(fresh).init(*this);
}

Ref<NSMutableAttributedString> NSAttributedString::mutableCopy() const
{
    return make<NSMutableAttributedString>(*this);
}

long NSAttributedString::length() const
{
    return m_positions.length(m_text);
}

void NSAttributedString::checkIndex(char const* operation, long index) const
{
    if (index < 0 || index >= length())
        raiseRangeException(operation, index, length());
}

void NSAttributedString::checkRange(char const* operation, NSRange range) const
{
    if (range.location < 0 || range.length < 0 || range.location > length() || range.length > length() - range.location)
        raiseRangeException(operation, range.length < 0 ? range.length : range.location + range.length, length());
}

std::size_t NSAttributedString::runAt(long index, long& start) const
{
    start = 0;
    std::size_t run = 0;
    while (run + 1 < m_runs.size() && index >= start + m_runs[run].length)
        start += m_runs[run++].length;
    return run;
}

Attributes const& NSAttributedString::attributesAtIndex(long index) const
{
    NSRange range;
    return attributesAtIndex(index, range);
}

Attributes const& NSAttributedString::attributesAtIndex(long index, NSRange& effectiveRange) const
{
    checkIndex("attributesAtIndex", index);
    auto const run = runAt(index, effectiveRange.location);
    effectiveRange.length = m_runs[run].length;
    return *m_runs[run].attributes;
}

Attributes const& NSAttributedString::attributesAtIndex(long index, NSRange& longestEffectiveRange, NSRange inRange) const
{
    checkRange("attributesAtIndex", inRange);
    auto const& attributes = attributesAtIndex(index, longestEffectiveRange);
    longestEffectiveRange = NSIntersectionRange(longestEffectiveRange, inRange);
    return attributes;
}

ObjectValue NSAttributedString::attribute(std::string_view name, long atIndex) const
{
    NSRange range;
    return attribute(name, atIndex, range);
}

ObjectValue NSAttributedString::attribute(std::string_view name, long atIndex, NSRange& effectiveRange) const
{
    auto const* value = find(attributesAtIndex(atIndex, effectiveRange), name);
    return value ? *value : ObjectValue();
}

ObjectValue NSAttributedString::attribute(
    std::string_view name, long atIndex, NSRange& longestEffectiveRange, NSRange inRange) const
{
    checkIndex("attribute", atIndex);
    checkRange("attribute", inRange);
    long start = 0;
    auto const run = runAt(atIndex, start);
    auto const* value = find(*m_runs[run].attributes, name);
    auto first = run;
    while (first > 0 && start > inRange.location && isSameValue(find(*m_runs[first - 1].attributes, name), value))
        start -= m_runs[--first].length;
    long end = start;
    for (auto i = first; i <= run; ++i)
        end += m_runs[i].length;
    auto next = run + 1;
    while (next < m_runs.size() && end < inRange.end() && isSameValue(find(*m_runs[next].attributes, name), value))
        end += m_runs[next++].length;
    longestEffectiveRange = NSIntersectionRange({ start, end - start }, inRange);
    return value ? *value : ObjectValue();
}

Ref<NSAttributedString> NSAttributedString::attributedSubstringFromRange(NSRange range) const
{
    checkRange("attributedSubstringFromRange", range);
    auto const firstByte = m_positions.byteOfUnit(m_text, range.location);
    auto const lastByte = m_positions.byteOfUnit(m_text, range.end());
    long const first = m_positions.unitOfByte(m_text, firstByte);
    long const last = m_positions.unitOfByte(m_text, lastByte);
    auto part = make<NSAttributedString>();
    part->m_text = m_text.substr(firstByte, lastByte - firstByte);
    long start = 0;
    for (auto const& run : m_runs) {
        long const length = std::min(start + run.length, last) - std::max(start, first);
        if (length > 0)
            part->m_runs.push_back({ length, run.attributes });
        start += run.length;
    }
    return part;
}

bool NSAttributedString::isEqualToAttributedString(NSAttributedString const& other) const
{
    auto const isSameRun = [](Run const& a, Run const& b) {
        return a.length == b.length && (a.attributes == b.attributes || *a.attributes == *b.attributes);
    };
    return m_text == other.m_text && std::equal(m_runs.begin(), m_runs.end(), other.m_runs.begin(), other.m_runs.end(), isSameRun);
}

bool NSAttributedString::containsAttachments() const
{
    return std::any_of(
        m_runs.begin(), m_runs.end(), [](Run const& run) { return find(*run.attributes, NSAttachmentAttributeName); });
}

bool NSAttributedString::isEqual(NSObject const* other) const
{
    if (this == other)
        return true;
    auto const* string = dynamic_cast<NSAttributedString const*>(other);
    return string && isEqualToAttributedString(*string);
}

std::size_t NSAttributedString::hash() const
{
    return std::hash<std::string> {}(m_text);
}

std::string NSAttributedString::description() const
{
    std::string text;
    long start = 0;
    for (auto const& run : m_runs) {
        text += std::string(substringWithRange(m_text, { start, run.length })) + ObjectValue(*run.attributes).description();
        start += run.length;
    }
    return text;
}

Ref<NSAttributedString> attributedStringWithAttachment(Ref<NSObject> const& attachment)
{
    std::string text;
    appendUTF8(text, NSAttachmentCharacter);
    return make<NSAttributedString>(text, Attributes { { NSAttachmentAttributeName, attachment } });
}

}
