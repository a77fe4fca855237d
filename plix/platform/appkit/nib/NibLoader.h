#pragma once

#include <plix/platform/appkit/nib/nib_document.h>
#include <plix/platform/base/NSObject.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class Class;
class NSImage;
class NSWindow;

/// Makes the objects of a document once: all of them, then their properties, then their connections; then each is awakened, and
/// windows that are to be seen at once come on screen. A document that contains itself in a circle is refused before anything is
/// connected.
class NibLoader {
public:
    /// What comes from elsewhere.
    struct Resources {
        /// The user's words for a key, or the text where there are none.
        std::function<std::string(NibText const&)> localized;
        /// Null where there is none of that name.
        std::function<Ref<NSImage>(std::string const& name)> imageNamed;
    };

    NibLoader(NibDocument const&, NSObject* owner, Resources);
    ~NibLoader();

    /// False where the document is refused; `problem()` then says why, and the owner is untouched.
    bool load();
    std::string const& problem() const { return m_problem; }
    /// What could not be made as written or not be connected, each once.
    std::vector<std::string> const& warnings() const { return m_warnings; }
    std::vector<Ref<NSObject>> const& topLevelObjects() const { return m_topLevelObjects; }
    /// What was made for the object with that id; null for none.
    NSObject* objectWithID(std::string const& id) const;

private:
    class Coder;
    enum class State : std::uint8_t { untouched, beingMade, made };
    struct Made {
        Ref<NSObject> object;
        State state { State::untouched };
    };

    Ref<NSObject> object(NibObject const&);
    Ref<NSObject> make(NibObject const&);
    Ref<NSObject> makeFromCoder(Class const&, NibObject const&);
    Ref<NSObject> makeWindow(Class const&, NibObject const&);
    Class const& classOf(NibObject const&);
    ObjectValue value(NibValue const&);
    ObjectValue value(NibObject const&, std::string_view key);
    bool flag(NibObject const&, std::string_view key, bool otherwise);

    void setProperties(NibObject const&);
    void connect(NibObject const&);
    void connectOutlet(NibObject const&, NSObject& source, NibConnection const&);
    void connectAction(NibObject const&, NSObject& source, NibConnection const&);
    void awaken();
    void showInterface();

    void refuse(NibObject const&, std::string const& reason);
    void warn(NibObject const&, std::string const& what);
    void addWarning(std::string line);

    NibDocument const& m_document;
    NSObject* m_owner;
    Resources m_resources;
    std::vector<Made> m_made;
    std::vector<Ref<NSObject>> m_topLevelObjects;
    std::vector<std::string> m_warnings;
    std::string m_problem;
    int m_depth { 0 };
};

}
