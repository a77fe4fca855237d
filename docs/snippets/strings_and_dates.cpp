#include <plix/plix.h>

#include <iostream>

using namespace plix;

int main()
{
    std::cout << StringForFileSize(1536) << ", " << StringForFileSize(5'242'880) << '\n';
    std::cout << TimeIntervalDescription(3725) << ", " << PLIXLongStringForTimeInterval(3725) << '\n';

    for (auto const& field : CSVLineComponents("Zürich,\"Aare, Limmat\",8001"))
        std::cout << field << '\n';

    auto const formatter = make<TQTimeIntervalFormatter>(0, 2);
    ObjectValue seconds;
    std::string error;
    formatter->getObjectValue(seconds, "1:02:05", error);
    std::cout << seconds.doubleValue() << " is " << *formatter->stringForObjectValue(seconds) << '\n';

    auto const day = NSCalendarDate::dateWithString("2027-01-31", "%Y-%m-%d");
    auto const later = day->dateByAddingYears(0, 1, 0, 0, 0, 0);
    std::cout << later.descriptionWithCalendarFormat("%A, %d %B %Y") << '\n';
}
