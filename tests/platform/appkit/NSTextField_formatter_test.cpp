#include <tests/support/FieldTest.h>

#include <plix/platform/foundation/NSFormatter.h>

namespace plix {
namespace {

constexpr char32_t tab = NSTabCharacter;
constexpr char32_t escape = NSEscapeCharacter;

/// Whole numbers, shown as "<n>" and edited as "n".
class NumberFormatter : public NSFormatter {
public:
    std::optional<std::string> stringForObjectValue(ObjectValue const& value) const override
    {
        return value.isNumber() ? std::optional("<" + std::to_string(value.intValue()) + ">") : std::nullopt;
    }
    std::optional<std::string> editingStringForObjectValue(ObjectValue const& value) const override
    {
        return value.isNumber() ? std::optional(std::to_string(value.intValue())) : std::nullopt;
    }
    bool getObjectValue(ObjectValue& value, std::optional<std::string_view> text, std::string& error) const override
    {
        if (!text || text->empty() || text->find_first_not_of("0123456789") != std::string_view::npos) {
            error = "no number";
            return false;
        }
        value = intValue(*text);
        return true;
    }
    bool isPartialStringValid(std::string_view partial, std::string& instead, std::string& error) const override
    {
        if (partial.find('x') == std::string_view::npos)
            return partial.size() <= longest;
        error = "no x";
        instead = replacement;
        return false;
    }
    std::string replacement;
    std::size_t longest { 100 };
};

class FormattedField : public FieldTest {
protected:
    void SetUp() override
    {
        FieldTest::SetUp();
        formatter = make<NumberFormatter>();
        field->setFormatter(formatter);
        field->setIntValue(12);
    }
    Ref<NumberFormatter> formatter;
};

TEST_F(FormattedField, EditsTheFormattersTextForEditing)
{
    EXPECT_EQ(field->stringValue(), "<12>");
    window->makeFirstResponder(field.get());
    EXPECT_EQ(marked(), "[12]");
    type("34");
    key(tab);
    EXPECT_EQ(field->stringValue(), "<34>");
    EXPECT_EQ(field->intValue(), 34);
}

TEST_F(FormattedField, AnUntouchedValueIsLeftAlone)
{
    field->setObjectValue(12.5);
    window->makeFirstResponder(field.get());
    key(tab);
    EXPECT_EQ(field->doubleValue(), 12.5);
}

TEST_F(FormattedField, ARefusedTextKeepsTheKeyboardAndBeeps)
{
    window->makeFirstResponder(field.get());
    type("12a");
    auto const beeps = display().beepCount();
    key(tab);
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "[12a]");
    EXPECT_EQ(display().beepCount(), beeps + 1);
    type("5");
    key(tab);
    EXPECT_TRUE(isEditing(*second));
    EXPECT_EQ(field->intValue(), 5);
}

TEST_F(FormattedField, AnUntouchedEmptyFieldMayBeLeft)
{
    field->setObjectValue({});
    window->makeFirstResponder(field.get());
    key(tab);
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(FormattedField, AValueThatIsAskedForDuringARefusedTextIsTheOldOne)
{
    window->makeFirstResponder(field.get());
    type("12a");
    EXPECT_EQ(field->intValue(), 12);
    EXPECT_EQ(editor().string(), "12a");
}

TEST_F(FormattedField, TheDelegateMayLetARefusedTextPass)
{
    auto const asked = addDelegate();
    window->makeFirstResponder(field.get());
    type("ab");
    asked->log.clear();
    key(tab);
    EXPECT_EQ(asked->log, "failed 'ab' no number ");
    EXPECT_TRUE(isEditing(*field));
    asked->letsFailPass = true;
    key(tab);
    EXPECT_TRUE(isEditing(*second));
    EXPECT_EQ(field->stringValue(), "ab");
    EXPECT_TRUE(field->objectValue().isNil());
}

TEST_F(FormattedField, TheDelegateMayRefuseTheObject)
{
    auto const asked = addDelegate();
    asked->isValid = false;
    window->makeFirstResponder(field.get());
    type("99");
    asked->log.clear();
    key(tab);
    EXPECT_EQ(asked->log, "valid 99? ");
    EXPECT_TRUE(isEditing(*field));
}

TEST_F(FormattedField, WhatTheFormatterRefusesIsNotTyped)
{
    auto const asked = addDelegate();
    window->makeFirstResponder(field.get());
    type("1x2");
    EXPECT_EQ(editor().string(), "12");
    EXPECT_NE(asked->log.find("partial '1x' no x"), std::string::npos);
}

TEST_F(FormattedField, TheFormatterMayReplaceWhatIsTyped)
{
    formatter->replacement = "77";
    window->makeFirstResponder(field.get());
    type("1x");
    EXPECT_EQ(marked(), "77|");
    EXPECT_EQ(field->intValue(), 77);
}

TEST_F(FormattedField, EscapeBringsTheValueBack)
{
    window->makeFirstResponder(field.get());
    type("12a");
    key(escape);
    EXPECT_EQ(marked(), "[12]");
    key(tab);
    EXPECT_EQ(field->intValue(), 12);
}

TEST_F(FormattedField, RemovingAFieldWithARefusedTextKeepsTheOldValue)
{
    window->makeFirstResponder(field.get());
    type("12a");
    field->removeFromSuperview();
    EXPECT_EQ(field->intValue(), 12);
    EXPECT_EQ(field->currentEditor(), nullptr);
}

}
}
