#include <plix/format/classes.h>

#include <plix/format/TQTimeIntervalFormatter.h>

namespace plix {

void registerFormatClasses()
{
    TQTimeIntervalFormatter::staticClass();
}

}
