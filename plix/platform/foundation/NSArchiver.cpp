#include <plix/platform/foundation/NSArchiver.h>

#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/archive_bytes.h>

#include <map>
#include <unordered_map>
#include <vector>

namespace plix {

namespace {

constexpr int deepestReading = 512;

/// Turns objects into frames; what is met while a frame is written gets a frame of its own behind it.
class Writer {
public:
    Ref<NSData> archive(ObjectValue const& root)
    {
        ArchiveTree tree;
        tree.root = node(root);
        for (std::size_t index = 0; index < m_waiting.size(); ++index)
            tree.objects.push_back(frame(*m_waiting[index]));
        return make<NSData>(archiveBytes(tree));
    }

private:
    class FrameCoder final : public NSCoder {
    public:
        explicit FrameCoder(Writer& writer, ArchiveFrame& frame)
            : m_writer(writer)
            , m_frame(frame)
        {
        }
        void encodeObject(ObjectValue const& value) override { m_frame.sequence.push_back(m_writer.node(value)); }
        void encodeObject(ObjectValue const& value, std::string_view forKey) override
        {
            m_frame.keyed.insert_or_assign(std::string(forKey), m_writer.node(value));
        }
        ObjectValue decodeObject() override { return {}; }
        ObjectValue decodeObjectForKey(std::string_view) override { return {}; }
        bool containsValueForKey(std::string_view key) const override { return m_frame.keyed.contains(std::string(key)); }

    private:
        Writer& m_writer;
        ArchiveFrame& m_frame;
    };

    static bool isArchivable(NSObject const& object)
    {
        auto const& described = object.describedClass();
        return described.type() == typeid(object) && described.readsFromCoder();
    }

    ArchiveNode node(ObjectValue const& value)
    {
        if (auto const* array = value.array()) {
            ArchiveNode::Array nodes;
            for (auto const& item : *array)
                nodes.push_back(node(item));
            return { std::move(nodes) };
        }
        if (auto const* dictionary = value.dictionary()) {
            ArchiveNode::Dictionary nodes;
            for (auto const& [key, item] : *dictionary)
                nodes.insert_or_assign(key, node(item));
            return { std::move(nodes) };
        }
        if (!value.isObject())
            return { value };
        if (value.as<NSData>())
            return { value };
        auto* object = value.object();
        if (!isArchivable(*object))
            return { ObjectValue() };
        auto const [found, isNew] = m_indexes.try_emplace(object, static_cast<std::uint32_t>(m_waiting.size()));
        if (isNew)
            m_waiting.push_back(Ref<NSObject>(object));
        return { ArchiveReference { found->second } };
    }

    ArchiveFrame frame(NSObject const& object)
    {
        ArchiveFrame frame;
        frame.className = object.isa().name();
        FrameCoder coder(*this, frame);
        object.encodeWithCoder(coder);
        return frame;
    }

    std::unordered_map<NSObject const*, std::uint32_t> m_indexes;
    std::vector<Ref<NSObject>> m_waiting;
};

class Reader {
public:
    explicit Reader(ArchiveTree const& tree)
        : m_tree(tree)
        , m_objects(tree.objects.size())
    {
    }

    /// The archive's root; nothing where it cannot be built, with the reason in `problem`.
    std::optional<ObjectValue> read(std::string& problem)
    {
        for (auto const& frame : m_tree.objects) {
            auto const* described = NSClassFromString(frame.className);
            if (!described || !described->readsFromCoder()) {
                problem = "unknown class '" + frame.className + "'";
                return std::nullopt;
            }
        }
        auto root = value(m_tree.root);
        if (m_isTooDeep) {
            problem = "objects nested too deeply";
            return std::nullopt;
        }
        return root;
    }

private:
    class FrameCoder final : public NSCoder {
    public:
        FrameCoder(Reader& reader, ArchiveFrame const& frame)
            : m_reader(reader)
            , m_frame(frame)
        {
        }
        void encodeObject(ObjectValue const&) override { }
        void encodeObject(ObjectValue const&, std::string_view) override { }
        ObjectValue decodeObject() override
        {
            if (m_next == m_frame.sequence.size())
                return {};
            return m_reader.value(m_frame.sequence[m_next++]);
        }
        ObjectValue decodeObjectForKey(std::string_view key) override
        {
            auto const found = m_frame.keyed.find(std::string(key));
            return found == m_frame.keyed.end() ? ObjectValue() : m_reader.value(found->second);
        }
        bool containsValueForKey(std::string_view key) const override { return m_frame.keyed.contains(std::string(key)); }

    private:
        Reader& m_reader;
        ArchiveFrame const& m_frame;
        std::size_t m_next { 0 };
    };

    struct Object {
        Ref<NSObject> object;
        bool isStarted { false };
    };

    ObjectValue value(ArchiveNode const& node)
    {
        if (auto const* plain = std::get_if<ObjectValue>(&node.value))
            return *plain;
        if (auto const* reference = std::get_if<ArchiveReference>(&node.value))
            return object(reference->index);
        if (auto const* array = std::get_if<ArchiveNode::Array>(&node.value)) {
            ObjectValue::Array values;
            for (auto const& item : *array)
                values.push_back(value(item));
            return values;
        }
        ObjectValue::Dictionary values;
        for (auto const& [key, item] : std::get<ArchiveNode::Dictionary>(node.value))
            values.insert_or_assign(key, value(item));
        return values;
    }

    Ref<NSObject> object(std::uint32_t index)
    {
        auto& entry = m_objects[index];
        if (entry.isStarted)
            return entry.object;
        entry.isStarted = true;
        if (m_depth == deepestReading) {
            m_isTooDeep = true;
            return nullptr;
        }
        auto const& frame = m_tree.objects[index];
        auto const& described = *NSClassFromString(frame.className);
        auto fresh = described.allocate();
        if (!fresh)
            return nullptr;
        entry.object = fresh; // before it is read, so that a circle finds it
        ++m_depth;
        FrameCoder coder(*this, frame);
        bool const isMade = described.initObject(*fresh, coder);
        --m_depth;
        if (!isMade)
            m_objects[index].object = nullptr;
        return m_objects[index].object;
    }

    ArchiveTree const& m_tree;
    std::vector<Object> m_objects;
    int m_depth { 0 };
    bool m_isTooDeep { false };
};

}

Ref<NSData> NSArchiver::archivedDataWithRootObject(ObjectValue const& root)
{
    return Writer().archive(root);
}

std::optional<ObjectValue> NSUnarchiver::unarchiveObjectWithData(NSData const& data)
{
    std::string problem;
    auto const tree = archiveTree(data.bytes(), problem);
    auto result = tree ? Reader(*tree).read(problem) : std::nullopt;
    if (!result)
        NSLog("archive refused: " + problem);
    return result;
}

}
