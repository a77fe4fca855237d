#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>
#include <tests/support/HeadlessTest.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A top-level object that notes what is done to it.
class NibHelper : public NSObject {
    PLIX_CLASS(NibHelper, NSObject);

public:
    NibHelper() { ++alive; }
    ~NibHelper() override { --alive; }
    void awakeFromNib() override { isAwake = true; }

    bool isAwake { false };
    inline static int alive { 0 };
};

/// Who loads an interface file.
class NibOwner : public NSObject {
    PLIX_CLASS(NibOwner, NSObject);

public:
    void awakeFromNib() override;
    void setWindow(Ref<NSWindow> const& value) { window = value; }
    void setNameField(Ref<NSTextField> const& value) { nameField = value; }
    void setHelper(Ref<NibHelper> const& value) { helper = value.get(); }
    void choose(NSObject* sender) { chosenBy = sender; }

    Ref<NSWindow> window;
    Ref<NSTextField> nameField;
    Weak<NibHelper> helper;
    NSObject* chosenBy { nullptr };
    int awakenings { 0 };
    bool wasConnectedWhenAwakened { false };
};

/// Loads documents, and keeps what is logged meanwhile.
class NibTest : public HeadlessTest {
protected:
    NibTest();
    ~NibTest() override;

    /// A document with these objects.
    static std::string document(std::string_view objects);
    /// The same with the three that stand for others, the owner with these connections.
    static std::string documentWithOwner(std::string_view objects, std::string_view connections = {});
    Ref<NSNib> nib(std::string_view text);
    /// The top-level objects of a document, empty where it is refused.
    std::vector<Ref<NSObject>> load(std::string_view text);
    /// The first of them; null where it is of another class.
    template <typename T> Ref<T> loadFirst(std::string_view text)
    {
        auto const objects = load(text);
        return objects.empty() ? nullptr : as<T>(objects.front());
    }
    /// How many lines of the log have this in them.
    int lines(std::string_view part) const;

    Ref<NibOwner> owner;
    std::vector<std::string> log;

private:
    LogSink m_previousSink;
};

}
