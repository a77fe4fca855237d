#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSWindowController.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Documents : public HeadlessTest {
protected:
    Ref<NSWindowController> controllerWithWindow()
    {
        return make<NSWindowController>(make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true));
    }
    static NSDocumentController& shared() { return NSDocumentController::sharedDocumentController(); }
};

TEST_F(Documents, TheCurrentOneIsTheMainWindows)
{
    auto const document = make<NSDocument>();
    auto const other = make<NSDocument>();
    auto const controller = controllerWithWindow();
    auto const otherController = controllerWithWindow();
    document->addWindowController(*controller);
    other->addWindowController(*otherController);
    shared().addDocument(*document);
    shared().addDocument(*other);
    EXPECT_EQ(shared().currentDocument(), nullptr);
    document->showWindows();
    EXPECT_EQ(shared().currentDocument(), document.get());
    other->showWindows();
    EXPECT_EQ(shared().currentDocument(), other.get());
    showWindow();
    EXPECT_EQ(shared().currentDocument(), nullptr);
    document->close();
    other->close();
    EXPECT_THAT(shared().documents(), IsEmpty());
}

TEST_F(Documents, TheLastWindowsClosingClosesTheDocument)
{
    auto const document = make<NSDocument>();
    auto const first = controllerWithWindow();
    auto const second = controllerWithWindow();
    document->addWindowController(*first);
    document->addWindowController(*second);
    document->addWindowController(*second);
    EXPECT_THAT(document->windowControllers(), ElementsAre(first, second));
    shared().addDocument(*document);
    document->showWindows();
    first->window()->close();
    EXPECT_THAT(document->windowControllers(), ElementsAre(second));
    EXPECT_THAT(shared().documents(), ElementsAre(document));
    second->window()->performClose(nullptr);
    EXPECT_THAT(shared().documents(), IsEmpty());
    EXPECT_THAT(document->windowControllers(), IsEmpty());
}

TEST_F(Documents, AControllerStandsBehindItsWindowAndLoadsItOnce)
{
    class Loading final : public NSWindowController {
    public:
        int loads { 0 };
        int told { 0 };
        void loadWindow() override
        {
            ++loads;
            setWindow(make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true));
        }
        void windowDidLoad() override { ++told; }
    };
    auto const controller = make<Loading>();
    EXPECT_FALSE(controller->isWindowLoaded());
    auto* const window = controller->window();
    ASSERT_TRUE(window);
    EXPECT_EQ(controller->window(), window);
    EXPECT_EQ(controller->loads, 1);
    EXPECT_EQ(controller->told, 1);
    EXPECT_EQ(window->nextResponder(), controller.get());
    EXPECT_EQ(window->windowController(), controller.get());
    controller->showWindow(nullptr);
    EXPECT_TRUE(window->isKeyWindow());
}

TEST_F(Documents, TitlesFollowTheDocumentsName)
{
    auto const document = make<NSDocument>();
    auto const controller = controllerWithWindow();
    document->addWindowController(*controller);
    EXPECT_EQ(controller->window()->title(), "Untitled");
    document->setFileName("/folder/Letter.txt");
    EXPECT_EQ(controller->window()->title(), "Letter.txt");
    document->updateChangeCount(NSChangeDone);
    EXPECT_TRUE(controller->window()->isDocumentEdited());
    document->updateChangeCount(NSChangeUndone);
    EXPECT_FALSE(document->isDocumentEdited());
}

}
}
