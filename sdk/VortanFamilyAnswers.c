#include "VortanFamilyAnswers.h"

#include <stdio.h>
#include <string.h>
#include <time.h>

// The record is read and written byte by byte: it may stand at any address.

static uint32_t wordAt(const void* record, size_t offset)
{
    uint32_t word;
    memcpy(&word, (const uint8_t*)record + offset, sizeof word);
    return word;
}

static uint8_t* payloadOf(void* record) { return (uint8_t*)record + offsetof(VortanMessage, payload); }

// ---- Messages

uint32_t VortanCommandOf(const void* record, size_t size)
{
    uint32_t command;
    if (record == NULL || size != VORTAN_MESSAGE_SIZE || wordAt(record, 0) != VORTAN_MESSAGE_MAGIC)
        return 0;
    command = wordAt(record, offsetof(VortanMessage, command));
    return command == VORTAN_GET_GROUP || command == VORTAN_SET_GROUP || command == VORTAN_GET_IDENTITY
               ? command
               : 0;
}

int VortanAnswerGroup(void* record, size_t size, int16_t group)
{
    if (VortanCommandOf(record, size) != VORTAN_GET_GROUP)
        return 0;
    memcpy(payloadOf(record), &group, sizeof group);
    return 1;
}

int VortanAnswerIdentity(void* record, size_t size, const VortanIdentity* identity)
{
    if (VortanCommandOf(record, size) != VORTAN_GET_IDENTITY)
        return 0;
    memcpy(payloadOf(record), identity->bytes, sizeof identity->bytes);
    return 1;
}

int VortanTakeGroup(const void* record, size_t size, int16_t* group)
{
    if (VortanCommandOf(record, size) != VORTAN_SET_GROUP)
        return 0;
    memcpy(group, (const uint8_t*)record + offsetof(VortanMessage, payload), sizeof *group);
    return 1;
}

static int16_t groupAfter(int16_t before, int16_t told)
{
    if (before == VORTAN_GROUP_RIGID)
        return before;
    return told >= VORTAN_GROUP_FIRST && told <= VORTAN_GROUP_LAST ? told : (int16_t)VORTAN_GROUP_TOP;
}

uint32_t VortanAnswer(VortanKept* kept, void* record, size_t size)
{
    int16_t told;
    if (VortanAnswerGroup(record, size, kept->group))
        return VORTAN_GET_GROUP;
    if (VortanAnswerIdentity(record, size, &kept->identity))
        return VORTAN_GET_IDENTITY;
    if (!VortanTakeGroup(record, size, &told))
        return 0;
    kept->group = groupAfter(kept->group, told);
    return VORTAN_SET_GROUP;
}

// ---- Identities

/// Spreads every bit of a number over all of it.
static uint64_t spread(uint64_t value)
{
    value += UINT64_C(0x9e3779b97f4a7c15);
    value = (value ^ (value >> 30)) * UINT64_C(0xbf58476d1ce4e5b9);
    value = (value ^ (value >> 27)) * UINT64_C(0x94d049bb133111eb);
    return value ^ (value >> 31);
}

/// How many came. What did not come stays as it was.
static size_t readRandomBytes(uint8_t* bytes, size_t count)
{
    size_t came;
    FILE* source = fopen("/dev/urandom", "rb");
    if (source == NULL)
        return 0;
    came = fread(bytes, 1, count, source);
    (void)fclose(source);
    return came;
}

VortanIdentity VortanMakeIdentity(void)
{
    VortanIdentity identity;
    uint64_t halves[2] = {0, 0};
    const uint64_t moment = spread((uint64_t)time(NULL)) ^ spread((uint64_t)clock());
    size_t i;
    (void)readRandomBytes((uint8_t*)halves, sizeof halves);
    for (i = 0; i < 2; ++i)
        halves[i] ^= spread(moment + i);
    memcpy(identity.bytes, halves, sizeof identity.bytes);
    // The version and variant bits of a random UUID; with them it is never zero.
    identity.bytes[6] = (uint8_t)((identity.bytes[6] & 0x0f) | 0x40);
    identity.bytes[8] = (uint8_t)((identity.bytes[8] & 0x3f) | 0x80);
    return identity;
}

int VortanIsZeroIdentity(const VortanIdentity* identity)
{
    size_t i;
    for (i = 0; i < sizeof identity->bytes; ++i)
        if (identity->bytes[i] != 0)
            return 0;
    return 1;
}

void VortanFormatIdentity(const VortanIdentity* identity, char text[VORTAN_IDENTITY_TEXT_SIZE])
{
    static const char digits[] = "0123456789abcdef";
    size_t i;
    for (i = 0; i < sizeof identity->bytes; ++i)
    {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            *text++ = '-';
        *text++ = digits[identity->bytes[i] >> 4];
        *text++ = digits[identity->bytes[i] & 0x0f];
    }
    *text = '\0';
}

// ---- What is kept

VortanKept VortanKeepNew(void)
{
    VortanKept kept;
    memset(&kept, 0, sizeof kept);
    kept.identity = VortanMakeIdentity();
    kept.group = VORTAN_GROUP_TOP;
    return kept;
}

VortanKept VortanKeepCopy(const VortanKept* original)
{
    VortanKept kept = *original;
    kept.identity = VortanMakeIdentity();
    return kept;
}
