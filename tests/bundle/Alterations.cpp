#include "tests/bundle/Alterations.h"

#include <exception>

namespace standin
{

namespace
{
bool passes(const Bytes& bytes, const Check& check)
{
    try
    {
        return check(bytes);
    }
    catch (const std::exception&)
    {
        return false;
    }
}

bool isAnyAlterationPassed(const Bytes& bytes, std::size_t place, const Check& check)
{
    for (const unsigned flip : {0x01u, 0x80u, 0xFFu})
    {
        Bytes altered = bytes;
        altered[place] = static_cast<std::uint8_t>(altered[place] ^ flip);
        if (passes(altered, check))
            return true;
    }
    const Bytes shortened(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(place));
    return passes(shortened, check);
}
} // namespace

std::vector<std::size_t> FindUnnoticedAlterations(const Bytes& bytes, const Check& check)
{
    std::vector<std::size_t> unnoticed;
    for (std::size_t place = 0; place < bytes.size(); ++place)
        if (isAnyAlterationPassed(bytes, place, check))
            unnoticed.push_back(place);
    Bytes longer = bytes;
    longer.push_back(0);
    if (passes(longer, check))
        unnoticed.push_back(bytes.size());
    return unnoticed;
}
} // namespace standin
