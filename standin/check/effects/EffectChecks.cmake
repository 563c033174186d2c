# The checks of an effect, in the order in which they are listed and reported. vortan_effect_check of VortanChecks.cmake
# says what stands in a row.

vortan_effect_check(match-name "The match name is one of those that the panel looks for."
  RUNS MatchName
  BAD wrongMatchName [[no effect with the match name "QVK VORTEFF Pulse Efector"]])
vortan_effect_check(calls-return-well "No call ends with an error or is left by an exception."
  RUNS CallsReturnWell
  BAD returnsAnError [["VORTAN_TRY_MESSAGE ended with error 1"]])
vortan_effect_check(identity-answered "The effect answers an identity that is not zero, each time the same."
  RUNS IdentityIsAnswered
  BAD zeroIdentity [[a new effect answers the zero identity]]
      newIdentityEachTime [[the identity, asked for again, is]])
vortan_effect_check(identity-of-its-own
  "Every new effect has an identity that no other has, also in another run of the host."
  RUNS IdentityIsItsOwn
  BAD identityIsACounter [[two of 100 effects, applied in two runs of the host, answer 00000000-0000-0000-0000-000000000001]])
vortan_effect_check(identity-after-duplicate
  "A duplicated effect keeps its identity, and the duplicate makes its own."
  RUNS IdentityAfterDuplicate
  BAD duplicateKeepsIdentity [[original and duplicate both answer]])
vortan_effect_check(identity-in-kept-bytes "Identity and group lie in the kept bytes, wherever the host copies them."
  RUNS IdentityInKeptBytes
  BAD identityByAddress [[the same bytes at another address is]])
vortan_effect_check(identity-after-undo "A change of group, its undo and its redo leave the identity as it is."
  RUNS IdentityAfterUndo
  BAD identityChangesWithTheGroup [[the identity after a change of group is]])
vortan_effect_check(identity-after-save
  "Saved, and loaded in another run of the host, the effect answers the identity and the group that it had."
  RUNS IdentityAfterSave
  BAD identityInMemory [[the identity after loading is]])
vortan_effect_check(groups
  "Told a group from 1 to 10, or 0, the effect answers just that; a rigid one always answers -1."
  RUNS Groups
  BAD eightGroups [[told group 8, the effect answers 7]])
vortan_effect_check(group-minus-one "Told group -1, the effect answers 0 or -1."
  RUNS GroupToldMinusOne
  BAD groupInAByte [[told group -1, the effect answers 255]])
vortan_effect_check(groups-beyond "Told a number that is no group, the effect answers it, or its group before, or 0."
  RUNS GroupsBeyond
  BAD groupWrapsAround [[told group 12, the effect answers 1]])
vortan_effect_check(foreign-records "A record of another size, with another magic or another command is left alone."
  RUNS ForeignRecords
  BAD magicIsNotRead [[at: a record with another magic, command]])
vortan_effect_check(nothing-outside "Nothing is written outside the record's 128 bytes and the kept ones."
  RUNS NothingOutside
  BAD clearsTooMuch [[has written to the record's surroundings: 0 bytes past the end]])
vortan_effect_check(asked-quietly "Asked for identity or group, the effect calls nobody and changes nothing."
  RUNS AskedQuietly
  BAD refreshesWhenAsked [[calls of the panel's suites: number 1 is "RefreshPanel"]])
vortan_effect_check(no-other-thread "The suites are called on the host's main thread alone."
  RUNS NoOtherThread
  BAD notifiesFromAThread [[number 1 is "PanelNotify"]])
vortan_effect_check(queued-functions "Every function that the effect queues returns, and throws nothing."
  RUNS QueuedFunctions
  BAD queuedFunctionThrows [[number 1 is "the integer 4711"]])
vortan_effect_check(suite-arguments
  "The suites' functions get the reference of their own table, and a text that is there."
  RUNS SuiteArguments
  BAD forgetsTheReference [[number 1 is "RefreshPanel with a wrong reference"]])
vortan_effect_check(suites-released "Every suite is released as often as it was acquired."
  RUNS SuitesAreReleased
  BAD keepsTheSuite [[still held, so many times: Vortan Idle Suite v1 1: 1]])
vortan_effect_check(without-the-panel "Where the panel's plug-in is not installed, the effect answers all the same."
  RUNS WithoutThePanel
  BAD trustsTheSuite [[at: acquiring gives an error and null]])
