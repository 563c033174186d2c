#include "effects/CityHash.h"

#include "absl/hash/internal/city.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{
std::string randomBytes(std::mt19937& random, std::size_t length)
{
    std::uniform_int_distribution<int> byte(0, 255);
    std::string text(length, '\0');
    for (char& c : text)
        c = static_cast<char>(byte(random));
    return text;
}
} // namespace

TEST(CityHash, EqualsAnotherImplementationAtLengthsUpTo1000)
{
    std::mt19937 random(20261121);
    for (std::size_t length = 0; length <= 1000; ++length)
    {
        for (int round = 0; round < 8; ++round)
        {
            const std::string text = randomBytes(random, length);
            ASSERT_EQ(CityHash64(text.data(), text.size()),
                      absl::hash_internal::CityHash64(text.data(), text.size()))
                << "length " << length << ", round " << round;
        }
    }
}

TEST(CityHash, ReadsNothingOutsideTheRunAtAnyAlignment)
{
    std::mt19937 random(7);
    const std::string text = randomBytes(random, 400);
    for (std::size_t start = 0; start < 16; ++start)
    {
        for (std::size_t length : {0u, 1u, 3u, 4u, 7u, 8u, 16u, 17u, 32u, 33u, 64u, 65u, 128u, 300u})
        {
            const std::string copy = text.substr(start, length);
            EXPECT_EQ(CityHash64(text.data() + start, length), CityHash64(copy.data(), length));
        }
    }
}

TEST(CityHash, OfNothingIsTheEmptyConstant) { EXPECT_EQ(CityHash64(nullptr, 0), 0x9ae16a3b2f90404fULL); }

TEST(CityHash, TellsRunsApartThatDifferInOneBit)
{
    std::string text(200, 'x');
    const std::uint64_t before = CityHash64(text.data(), text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        text[i] = static_cast<char>(text[i] ^ 1);
        EXPECT_NE(CityHash64(text.data(), text.size()), before) << i;
        text[i] = static_cast<char>(text[i] ^ 1);
    }
}
