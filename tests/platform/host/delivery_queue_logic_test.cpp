#include <plix/platform/host/DeliveryQueue.h>

#include <gtest/gtest.h>

#include <vector>

namespace plix {
namespace {

using Kind = Delivery::Kind;

Delivery move(std::uint32_t window, float x, std::uint32_t buttons = 0, std::uint32_t modifiers = 0)
{
    Delivery delivery { Kind::input, window };
    delivery.event.type = HostEvent::Type::mouseMoved;
    delivery.event.locationOnScreen.x = x;
    delivery.event.pressedButtons = buttons;
    delivery.event.modifiers = modifiers;
    return delivery;
}

Delivery press(std::uint32_t window)
{
    Delivery delivery { Kind::input, window };
    delivery.event.type = HostEvent::Type::mouseDown;
    return delivery;
}

std::vector<Delivery> drained(DeliveryQueue& queue)
{
    std::vector<Delivery> all;
    while (auto delivery = queue.pop())
        all.push_back(*delivery);
    return all;
}

TEST(DeliveryQueue, KeepsTheOrder)
{
    DeliveryQueue queue;
    queue.push(press(1));
    queue.push({ Kind::closeRequested, 2 });
    queue.push(press(3));
    auto const all = drained(queue);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].window, 1U);
    EXPECT_EQ(all[1].kind, Kind::closeRequested);
    EXPECT_EQ(all[2].window, 3U);
    EXPECT_TRUE(queue.isEmpty());
}

TEST(DeliveryQueue, OnlyTheLastOfMovesInARowIsTold)
{
    DeliveryQueue queue;
    queue.push(move(1, 10));
    queue.push(move(1, 20));
    queue.push(move(1, 30));
    auto const all = drained(queue);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].event.locationOnScreen.x, 30);
}

TEST(DeliveryQueue, MovesThatDifferAreAllTold)
{
    DeliveryQueue queue;
    queue.push(move(1, 10));
    queue.push(move(2, 10));
    queue.push(move(2, 20, 1));
    queue.push(move(2, 30, 1, HostModifierShift));
    queue.push(press(2));
    queue.push(move(2, 40, 1, HostModifierShift));
    EXPECT_EQ(drained(queue).size(), 6U);
}

TEST(DeliveryQueue, PressesNeverReplaceEachOther)
{
    DeliveryQueue queue;
    queue.push(press(1));
    queue.push(press(1));
    EXPECT_EQ(drained(queue).size(), 2U);
}

TEST(DeliveryQueue, FocusThatComesBackAtOnceWasNeverLost)
{
    DeliveryQueue queue;
    queue.push({ Kind::focusLost, 1 });
    queue.push({ Kind::focusGained, 1 });
    EXPECT_TRUE(queue.isEmpty());
    queue.push({ Kind::focusLost, 1 });
    queue.push({ Kind::focusGained, 2 });
    EXPECT_EQ(drained(queue).size(), 2U);
}

TEST(DeliveryQueue, ARectangleIsToldOnceAWindow)
{
    DeliveryQueue queue;
    queue.push({ Kind::contentRectChanged, 1 });
    queue.push({ Kind::contentRectChanged, 1 });
    queue.push({ Kind::contentRectChanged, 2 });
    queue.push({ Kind::needsRepaint, 2, {}, { 0, 0, 1, 1 } });
    queue.push({ Kind::needsRepaint, 2, {}, { 5, 5, 1, 1 } });
    EXPECT_EQ(drained(queue).size(), 4U);
}

}
}
