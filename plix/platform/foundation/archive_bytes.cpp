#include <plix/platform/foundation/archive_bytes.h>

#include <plix/platform/base/NSData.h>

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

namespace plix {

namespace {

constexpr std::string_view magic = "plixarch";
constexpr std::uint32_t currentVersion = 1;
constexpr std::size_t headerSize = 16;
constexpr std::size_t largestArchive = 64U << 20;
constexpr std::uint32_t mostObjects = 1'000'000;
constexpr int deepestNesting = 64;

enum class Tag : std::uint8_t { nil, isFalse, isTrue, integer, floating, string, date, bytes, array, dictionary, object };

std::uint32_t crc32(std::span<std::uint8_t const> bytes)
{
    static auto const s_table = [] {
        std::array<std::uint32_t, 256> table {};
        for (std::uint32_t i = 0; i < table.size(); ++i) {
            std::uint32_t remainder = i;
            for (int bit = 0; bit < 8; ++bit)
                remainder = (remainder >> 1) ^ (remainder & 1 ? 0xEDB88320U : 0U);
            table[i] = remainder;
        }
        return table;
    }();
    std::uint32_t crc = ~0U;
    for (auto const byte : bytes)
        crc = (crc >> 8) ^ s_table[(crc ^ byte) & 0xFF];
    return ~crc;
}

class ByteWriter {
public:
    template <typename Integer> void integer(Integer value)
    {
        for (std::size_t i = 0; i < sizeof value; ++i)
            m_bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
    void floating(double value) { integer(std::bit_cast<std::uint64_t>(value)); }
    void tag(Tag tag) { m_bytes.push_back(static_cast<std::uint8_t>(tag)); }
    void count(std::size_t count) { integer(static_cast<std::uint32_t>(count)); }
    void raw(std::span<std::uint8_t const> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }
    void string(std::string_view text)
    {
        count(text.size());
        raw({ reinterpret_cast<std::uint8_t const*>(text.data()), text.size() });
    }

    void node(ArchiveNode const& node)
    {
        if (auto const* reference = std::get_if<ArchiveReference>(&node.value)) {
            tag(Tag::object);
            integer(reference->index);
        } else if (auto const* array = std::get_if<ArchiveNode::Array>(&node.value)) {
            tag(Tag::array);
            count(array->size());
            for (auto const& item : *array)
                this->node(item);
        } else if (auto const* dictionary = std::get_if<ArchiveNode::Dictionary>(&node.value)) {
            tag(Tag::dictionary);
            keyed(*dictionary);
        } else {
            plain(std::get<ObjectValue>(node.value));
        }
    }

    void frame(ArchiveFrame const& frame)
    {
        ByteWriter body;
        body.string(frame.className);
        body.count(frame.sequence.size());
        for (auto const& item : frame.sequence)
            body.node(item);
        body.keyed(frame.keyed);
        count(body.m_bytes.size());
        raw(body.m_bytes);
    }

    std::vector<std::uint8_t> const& bytes() const { return m_bytes; }

private:
    void keyed(std::map<std::string, ArchiveNode> const& entries)
    {
        count(entries.size());
        for (auto const& [key, item] : entries) {
            string(key);
            node(item);
        }
    }

    void plain(ObjectValue const& value)
    {
        if (value.isBool()) {
            tag(value.boolValue() ? Tag::isTrue : Tag::isFalse);
        } else if (value.isInteger()) {
            tag(Tag::integer);
            integer(static_cast<std::uint64_t>(value.integerValue()));
        } else if (value.isDouble()) {
            tag(Tag::floating);
            floating(value.doubleValue());
        } else if (auto const* text = value.string()) {
            tag(Tag::string);
            string(*text);
        } else if (auto const* date = value.date()) {
            tag(Tag::date);
            floating(date->timeIntervalSinceReferenceDate);
        } else if (auto const data = value.as<NSData>()) {
            tag(Tag::bytes);
            count(data->length());
            raw(data->bytes());
        } else {
            tag(Tag::nil);
        }
    }

    std::vector<std::uint8_t> m_bytes;
};

/// Reads with bounds: after the first failure everything reads as empty and isGood() is false.
class ByteReader {
public:
    explicit ByteReader(std::span<std::uint8_t const> bytes)
        : m_rest(bytes)
    {
    }

    bool isGood() const { return m_isGood; }
    bool isAtEnd() const { return m_rest.empty(); }
    void fail() { m_isGood = false; }

    std::span<std::uint8_t const> take(std::size_t count)
    {
        if (!m_isGood || count > m_rest.size()) {
            fail();
            return {};
        }
        auto const taken = m_rest.first(count);
        m_rest = m_rest.subspan(count);
        return taken;
    }
    template <typename Integer> Integer integer()
    {
        Integer value = 0;
        auto const bytes = take(sizeof value);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            value = static_cast<Integer>(value | static_cast<Integer>(bytes[i]) << (8 * i));
        return value;
    }
    double floating() { return std::bit_cast<double>(integer<std::uint64_t>()); }
    /// A number of things of which each takes at least `size` bytes.
    std::uint32_t count(std::size_t size)
    {
        auto const count = integer<std::uint32_t>();
        if (count > m_rest.size() / size)
            fail();
        return m_isGood ? count : 0;
    }
    std::string string()
    {
        auto const bytes = take(integer<std::uint32_t>());
        return { reinterpret_cast<char const*>(bytes.data()), bytes.size() };
    }

    ArchiveNode node(std::uint32_t objectCount, int depth = 0)
    {
        auto const tag = integer<std::uint8_t>();
        switch (static_cast<Tag>(tag)) {
        case Tag::nil:
            return { ObjectValue() };
        case Tag::isFalse:
            return { ObjectValue(false) };
        case Tag::isTrue:
            return { ObjectValue(true) };
        case Tag::integer:
            return { ObjectValue(static_cast<long long>(integer<std::uint64_t>())) };
        case Tag::floating:
            return { ObjectValue(floating()) };
        case Tag::string:
            return { ObjectValue(string()) };
        case Tag::date:
            return { ObjectValue(NSDate { floating() }) };
        case Tag::bytes:
            return { ObjectValue(make<NSData>(take(integer<std::uint32_t>()))) };
        case Tag::array:
            return array(objectCount, depth + 1);
        case Tag::dictionary:
            return { keyed(objectCount, depth + 1) };
        case Tag::object: {
            auto const index = integer<std::uint32_t>();
            if (index >= objectCount)
                fail();
            return { ArchiveReference { m_isGood ? index : 0 } };
        }
        }
        fail();
        return {};
    }

    ArchiveFrame frame(std::uint32_t objectCount)
    {
        ByteReader body(take(integer<std::uint32_t>()));
        ArchiveFrame frame;
        frame.className = body.string();
        auto const length = body.count(1);
        for (std::uint32_t i = 0; i < length && body.m_isGood; ++i)
            frame.sequence.push_back(body.node(objectCount));
        frame.keyed = body.keyed(objectCount, 0);
        if (!body.m_isGood || !body.isAtEnd())
            fail();
        return frame;
    }

private:
    ArchiveNode array(std::uint32_t objectCount, int depth)
    {
        ArchiveNode::Array items;
        auto const length = count(1);
        if (depth > deepestNesting)
            fail();
        for (std::uint32_t i = 0; i < length && m_isGood; ++i)
            items.push_back(node(objectCount, depth));
        return { std::move(items) };
    }

    std::map<std::string, ArchiveNode> keyed(std::uint32_t objectCount, int depth)
    {
        std::map<std::string, ArchiveNode> entries;
        auto const length = count(5);
        if (depth > deepestNesting)
            fail();
        for (std::uint32_t i = 0; i < length && m_isGood; ++i) {
            auto key = string();
            if (!entries.try_emplace(std::move(key), node(objectCount, depth)).second)
                fail();
        }
        return entries;
    }

    std::span<std::uint8_t const> m_rest;
    bool m_isGood { true };
};

}

std::vector<std::uint8_t> archiveBytes(ArchiveTree const& tree)
{
    ByteWriter body;
    body.count(tree.objects.size());
    for (auto const& frame : tree.objects)
        body.frame(frame);
    body.node(tree.root);

    ByteWriter whole;
    whole.raw({ reinterpret_cast<std::uint8_t const*>(magic.data()), magic.size() });
    whole.integer(currentVersion);
    whole.integer(crc32(body.bytes()));
    whole.raw(body.bytes());
    return whole.bytes();
}

std::optional<ArchiveTree> archiveTree(std::span<std::uint8_t const> bytes, std::string& problem)
{
    auto const refuse = [&](char const* reason) {
        problem = reason;
        return std::nullopt;
    };
    if (bytes.size() > largestArchive)
        return refuse("too large");
    ByteReader reader(bytes);
    auto const start = reader.take(magic.size());
    if (!std::equal(start.begin(), start.end(), magic.begin(), magic.end()))
        return refuse("not an archive");
    if (reader.integer<std::uint32_t>() != currentVersion)
        return refuse("of another version");
    auto const expected = reader.integer<std::uint32_t>();
    if (!reader.isGood() || crc32(bytes.subspan(headerSize)) != expected)
        return refuse("damaged");
    ArchiveTree tree;
    auto const objectCount = reader.count(4);
    if (objectCount > mostObjects)
        return refuse("too many objects");
    for (std::uint32_t i = 0; i < objectCount && reader.isGood(); ++i)
        tree.objects.push_back(reader.frame(objectCount));
    tree.root = reader.node(objectCount);
    if (!reader.isGood() || !reader.isAtEnd())
        return refuse("damaged");
    return tree;
}

}
