#include <plix/plix.h>

using namespace plix;

class Greeter : public NSObject {
    PLIX_CLASS(Greeter, NSObject);

public:
    void setName(Ref<NSTextField> const& field) { m_name = field; }
    void setGreeting(Ref<NSTextField> const& field) { m_greeting = field; }

    void greet(NSObject*) { m_greeting->setStringValue("Good day, " + m_name->stringValue() + "."); }

    void awakeFromNib() override { greet(nullptr); }

private:
    Ref<NSTextField> m_name;
    Ref<NSTextField> m_greeting;
};
PLIX_DESCRIBE(Greeter)
{
    description.outlet("name", &Greeter::setName).outlet("greeting", &Greeter::setGreeting).action("greet:", &Greeter::greet);
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const greeter = make<Greeter>();
    if (!loadNibNamed("Greeting", greeter.get()))
        return 1;
    application.run();
}
