#pragma once

#include <plix/platform/foundation/NSNotification.h>
#include <tests/support/TextTest.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// Notes what it is asked and told.
class FieldDelegate : public NSObject {
public:
    bool textShouldBeginEditing(NSControl&, NSText&)
    {
        log += "begin? ";
        return mayBegin;
    }
    bool textShouldEndEditing(NSControl&, NSText&)
    {
        log += "end? ";
        return mayEnd;
    }
    bool didFailToFormatString(NSControl&, std::string_view text, std::string_view error)
    {
        log += "failed '" + std::string(text) + "' " + std::string(error) + " ";
        return letsFailPass;
    }
    void didFailToValidatePartialString(NSControl&, std::string_view text, std::string_view error)
    {
        log += "partial '" + std::string(text) + "' " + std::string(error) + " ";
    }
    bool isValidObject(NSControl&, ObjectValue const& value)
    {
        log += "valid " + value.description() + "? ";
        return isValid;
    }
    bool controlDoCommandBySelector(NSControl&, NSTextView&, Selector command) { return command == taken; }
    void controlTextDidBeginEditing(NSNotification const&) { log += "begun "; }
    void controlTextDidChange(NSNotification const&) { log += "changed "; }
    void controlTextDidEndEditing(NSNotification const& notification)
    {
        log += "ended " + std::to_string(notification.userInfo.at("NSTextMovement").intValue()) + " ";
    }

    std::string log;
    Selector taken;
    bool mayBegin { true };
    bool mayEnd { true };
    bool letsFailPass { false };
    bool isValid { true };
};

/// Three fields below each other, linked to each other; the first one has an action.
class FieldTest : public TextTest {
protected:
    void SetUp() override
    {
        TextTest::SetUp();
        second = addField({ 20, 200, 200, 22 }, "second");
        third = addField({ 20, 160, 200, 22 }, "third");
        window->recalculateKeyViewLoop();
        field->setActionFunction([this](NSObject*) { log += "action '" + field->stringValue() + "' "; });
    }
    void begin(std::string_view text)
    {
        field->setStringValue(text);
        window->makeFirstResponder(field.get());
        pump();
    }
    Ref<FieldDelegate> addDelegate()
    {
        auto added = make<FieldDelegate>();
        field->setDelegate(added);
        return added;
    }

    Ref<NSTextField> second;
    Ref<NSTextField> third;
    std::string log;
};

}
