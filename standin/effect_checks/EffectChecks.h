#pragma once
// The checks of an effect, and their functions for the table. What each holds an effect to is said there.

#include "standin/checks/Check.h"

namespace standin
{
const CheckBook& EffectChecks();

namespace effect_checks
{
void MatchName(Trial& trial);
void CallsReturnWell(Trial& trial);
void IdentityIsAnswered(Trial& trial);
void IdentityIsItsOwn(Trial& trial);
void IdentityAfterDuplicate(Trial& trial);
void IdentityInKeptBytes(Trial& trial);
void IdentityAfterUndo(Trial& trial);
void IdentityAfterSave(Trial& trial);
void Groups(Trial& trial);
void GroupToldMinusOne(Trial& trial);
void GroupsBeyond(Trial& trial);
void ForeignRecords(Trial& trial);
void NothingOutside(Trial& trial);
void AskedQuietly(Trial& trial);
void NoOtherThread(Trial& trial);
void QueuedFunctions(Trial& trial);
void SuiteArguments(Trial& trial);
void SuitesAreReleased(Trial& trial);
void WithoutThePanel(Trial& trial);
} // namespace effect_checks
} // namespace standin
