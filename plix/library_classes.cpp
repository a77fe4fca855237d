#include <plix/library_classes.h>

#include <plix/app/PLIXApplication.h>
#include <plix/bitstream/classes.h>
#include <plix/controls/classes.h>
#include <plix/format/classes.h>
#include <plix/platform/appkit/classes.h>
#include <plix/speech/classes.h>
#include <plix/tables/classes.h>
#include <plix/windows/classes.h>

namespace plix {

void registerLibraryClasses()
{
    registerAppKitClasses();
    registerBitstreamClasses();
    registerFormatClasses();
    registerControlClasses();
    registerTableClasses();
    PLIXApplication::staticClass();
    registerSpeechClasses();
    registerWindowClasses();
}

}
