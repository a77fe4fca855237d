#include <plix/platform/graphics/truncation.h>

#include <algorithm>

namespace plix {

namespace {

/// Characters that are kept at the head and at the tail.
struct Kept {
    std::size_t head { 0 };
    std::size_t tail { 0 };
};

std::size_t countOf(TruncationInput const& input)
{
    return input.bytes.size() - 1;
}

std::size_t headThatFits(TruncationInput const& input, int room)
{
    std::size_t head = 0;
    while (head < countOf(input) && input.lefts[head + 1] <= room)
        ++head;
    return head;
}

std::size_t tailThatFits(TruncationInput const& input, int room, std::size_t atMost)
{
    auto const count = countOf(input);
    std::size_t tail = 0;
    while (tail < atMost && input.lefts[count] - input.lefts[count - tail - 1] <= room)
        ++tail;
    return tail;
}

Kept firstTry(TruncationInput const& input, NSLineBreakMode mode)
{
    int const room = input.width - input.ellipsisWidth;
    auto const count = countOf(input);
    if (mode == NSLineBreakByTruncatingHead)
        return { 0, tailThatFits(input, room, count) };
    if (mode == NSLineBreakByTruncatingTail)
        return { headThatFits(input, room), 0 };
    std::size_t const head = headThatFits(input, (room + 1) / 2);
    return { head, tailThatFits(input, room - input.lefts[head], count - head) };
}

Truncation withoutBlanks(TruncationInput const& input, Kept const& kept)
{
    std::size_t head = kept.head;
    std::size_t tail = kept.tail;
    auto const isBlank = [&](std::size_t character) { return input.text[input.bytes[character]] == ' '; };
    while (head > 0 && isBlank(head - 1))
        --head;
    while (tail > 0 && isBlank(countOf(input) - tail))
        --tail;
    return { input.bytes[head], input.bytes[countOf(input) - tail] };
}

}

Truncation truncationToFit(TruncationInput const& input, NSLineBreakMode mode, FunctionRef<int(std::string_view)> measure)
{
    auto kept = firstTry(input, mode);
    std::string shown;
    for (;;) {
        auto const truncation = withoutBlanks(input, kept);
        writeTruncated(shown, input.text, truncation);
        // Kerning next to the ellipsis may take a point more than was thought.
        if (kept.head + kept.tail == 0 || measure(shown) <= input.width)
            return truncation;
        if (kept.head > kept.tail)
            --kept.head;
        else
            --kept.tail;
    }
}

void writeTruncated(std::string& shown, std::string_view text, Truncation truncation)
{
    shown.assign(text.substr(0, truncation.prefixEnd));
    shown.append(ellipsisText);
    shown.append(text.substr(truncation.suffixStart));
}

}
