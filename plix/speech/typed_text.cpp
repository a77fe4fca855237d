#include <plix/speech/typed_text.h>

namespace plix {

bool isSpeakable(std::string_view text, std::string_view characters)
{
    return !text.empty() && characters.find(text) != characters.npos;
}

std::string_view spokenWordKey(std::string_view text)
{
    if (text == ".")
        return "point";
    return text == "," ? "comma" : "";
}

}
