#include <plix/hosting.h>
#include <plix/plix.h>

#include <iostream>
#include <memory>

using namespace plix;

void handleWhatWaits(NSApplication& application)
{
    while (auto const event = application.nextEventMatchingMask(NSAnyEventMask, NSDate::distantPast(), NSDefaultRunLoopMode, true))
        application.sendEvent(*event);
}

int main()
{
    auto machine = std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable);
    machine->headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(2) });
    auto& person = machine->script();
    auto before = installHost(std::move(machine));

    auto& application = NSApplication::sharedApplication();
    auto const window
        = make<NSWindow>(Rect { 100, 100, 200, 80 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    auto const box = make<NSButton>(Rect { 20, 30, 160, 20 });
    box->setButtonType(NSSwitchButton);
    box->setTitle("Remember me");
    window->contentView()->addSubview(*box);
    window->makeKeyAndOrderFront(nullptr);

    person.click({ 130, 140 });
    handleWhatWaits(application);

    auto const picture = window->snapshot();
    std::cout << "The box is " << (box->state() == NSOnState ? "on" : "off") << '\n';
    std::cout << picture->pixelsWide() << " x " << picture->pixelsHigh() << " pixels\n";

    window->close();
    installHost(std::move(before));
}
