#include <plix/speech/classes.h>

#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

namespace plix {

void registerSpeechClasses()
{
    PLIXSpeechSynthesizer::staticClass();
    PLIXSpeakingTextField::staticClass();
}

}
