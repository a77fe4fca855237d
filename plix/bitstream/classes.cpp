#include <plix/bitstream/classes.h>

#include <plix/bitstream/PLIXBitstream.h>

namespace plix {

void registerBitstreamClasses()
{
    PLIXBitstream::staticClass();
}

}
