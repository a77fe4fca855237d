#include <plix/platform/foundation/module_file.h>

#include <cstring>

#if defined(__ELF__)
#include <link.h>
#endif

namespace plix {

#if defined(__ELF__)

std::string_view faultOfModuleFile(std::span<std::uint8_t const> head, std::uint64_t fileSize)
{
    ElfW(Ehdr) header;
    if (head.size() < SELFMAG || std::memcmp(head.data(), ELFMAG, SELFMAG) != 0)
        return "it is no module";
    if (head.size() < sizeof header)
        return "it is cut off";
    std::memcpy(&header, head.data(), sizeof header);
    if (header.e_ident[EI_CLASS] != (sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32))
        return "it is for another machine";
    if (header.e_type != ET_DYN || header.e_phentsize != sizeof(ElfW(Phdr)) || header.e_phnum == 0)
        return "it is no module";
    if (header.e_phoff > head.size() || header.e_phnum > (head.size() - header.e_phoff) / sizeof(ElfW(Phdr)))
        return "it is cut off";
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) segment;
        std::memcpy(&segment, head.data() + header.e_phoff + i * sizeof segment, sizeof segment);
        if (segment.p_offset > fileSize || segment.p_filesz > fileSize - segment.p_offset)
            return "it is cut off";
    }
    return {};
}

#else

std::string_view faultOfModuleFile(std::span<std::uint8_t const>, std::uint64_t)
{
    return {};
}

#endif

}
