#include "standin/check/ExportedNames.h"

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace standin::check
{
namespace
{
/// The bytes of a file, read by place with a test of the bounds.
class Bytes
{
public:
    explicit Bytes(const std::string& file) : name(file)
    {
        std::ifstream stream(file, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(stream), {});
    }

    template <class Record>
    Record At(std::uint64_t place) const
    {
        Record record;
        if (place > bytes.size() || bytes.size() - place < sizeof record)
            throw std::runtime_error(name + " is cut short");
        std::memcpy(&record, bytes.data() + place, sizeof record);
        return record;
    }

    std::string TextAt(std::uint64_t place) const
    {
        std::string text;
        for (char c = At<char>(place); c != '\0'; c = At<char>(++place))
            text += c;
        return text;
    }

private:
    std::string name;
    std::vector<char> bytes;
};

bool isExported(const Elf64_Sym& symbol)
{
    const auto visibility = ELF64_ST_VISIBILITY(symbol.st_other);
    return symbol.st_shndx != SHN_UNDEF && symbol.st_shndx != SHN_ABS && symbol.st_name != 0 &&
           ELF64_ST_BIND(symbol.st_info) != STB_LOCAL &&
           (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}
} // namespace

std::vector<std::string> ExportedNames(const std::string& file)
{
    const Bytes bytes(file);
    const auto header = bytes.At<Elf64_Ehdr>(0);
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64)
        throw std::runtime_error(file + " is no 64-bit ELF file");
    const auto section = [&](std::uint64_t index)
    { return bytes.At<Elf64_Shdr>(header.e_shoff + index * header.e_shentsize); };

    std::vector<std::string> names;
    for (unsigned i = 0; i < header.e_shnum; ++i)
    {
        const Elf64_Shdr symbols = section(i);
        if (symbols.sh_type != SHT_DYNSYM)
            continue;
        const Elf64_Shdr texts = section(symbols.sh_link);
        for (std::uint64_t place = 0; place < symbols.sh_size; place += sizeof(Elf64_Sym))
            if (const auto symbol = bytes.At<Elf64_Sym>(symbols.sh_offset + place); isExported(symbol))
                names.push_back(bytes.TextAt(texts.sh_offset + symbol.st_name));
    }
    std::sort(names.begin(), names.end());
    return names;
}
} // namespace standin::check
