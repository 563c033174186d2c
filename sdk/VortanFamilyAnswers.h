#pragma once
// What every effect of the family would write again: telling a message apart, answering it, and making an
// identity. Compile VortanFamilyAnswers.c with your effect, as C or as C++.
//
// The functions work on bytes that the effect keeps and on the record, call nothing, and keep nothing
// themselves, so that they may be called on any thread. Pointers are not null unless a declaration says
// otherwise.

#include "VortanFamily.h"

VORTAN_C_BEGIN

/// What the panel wants an effect to keep of each instance, beside what the effect keeps for itself. It holds
/// no pointer: the host may copy it, move it, and save it with the project as it is.
typedef struct VortanKept
{
    VortanIdentity identity;
    int16_t group;
    uint8_t reserved[14]; ///< Zero, so that there is room for more one day.
} VortanKept;
VORTAN_ASSERT(sizeof(VortanKept) == 32, kept_is_32_bytes);

/// What is kept of an effect that has just been applied: a new identity, and group 0.
VortanKept VortanKeepNew(void);

/// The same for a copy: a new identity, and the group of the original.
VortanKept VortanKeepCopy(const VortanKept* original);

/// The record's command, or 0 for one that is none of the panel's: null, of another size, with another magic,
/// or with a command that the panel never sends. The host tells no length; where it calls you, `size` is
/// VORTAN_MESSAGE_SIZE, and nothing but the magic is read of a record that does not begin with it.
uint32_t VortanCommandOf(const void* record, size_t size);

/// Answers a message from `kept`, or takes the group that it tells. The record's command, or 0 for one that
/// was left alone, and `kept` with it. Told -1 or a number that the panel has no group for, the effect is at
/// the top level afterwards; one that is rigid stays so, whatever it is told.
uint32_t VortanAnswer(VortanKept* kept, void* record, size_t size);

// The single answers. Each returns 1, or 0 for a record that is not its own, which it leaves alone.
int VortanAnswerGroup(void* record, size_t size, int16_t group);
int VortanAnswerIdentity(void* record, size_t size, const VortanIdentity* identity);
/// Writes the told number into `*group`, as it came.
int VortanTakeGroup(const void* record, size_t size, int16_t* group);

/// An identity that no other effect has, on this machine or on another: of the system's random bytes, with
/// the time mixed in. It is never zero.
VortanIdentity VortanMakeIdentity(void);

/// 1 if all bytes are zero.
int VortanIsZeroIdentity(const VortanIdentity* identity);

/// Writes the text of an identity, with its terminating zero.
void VortanFormatIdentity(const VortanIdentity* identity, char text[VORTAN_IDENTITY_TEXT_SIZE]);

VORTAN_C_END
