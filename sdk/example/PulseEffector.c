// An effect of the family, as small as it can be: it keeps its identity and its group, answers the panel, and
// uses both suites. Its names are those of the family's Pulse Effector.

#include "VortanFamilyAnswers.h"
#include "VortanTryEffect.h"

#include <stdio.h>
#include <string.h>

// What the host stores of each instance.
typedef struct Pulse
{
    VortanKept family;
    // What your effect keeps besides it goes here.
} Pulse;
VORTAN_ASSERT(sizeof(Pulse) <= VORTAN_TRY_KEPT_SIZE, pulse_fits_into_what_is_kept);

// ---- The suites

static void notify(const VortanBasicSuite* basicSuite, const char* text)
{
    const VortanPanelSuite* panel = VortanAcquirePanelSuite(basicSuite);
    if (panel == NULL)
        return;
    (void)panel->PanelNotify(panel->panelRef, text);
    VortanReleasePanelSuite(basicSuite);
}

// Runs at the host's next idle. The instance may be gone by then, so nothing of it comes here.
static int welcome(int pluginId, VortanBasicSuite* basicSuite, void* refcon)
{
    const VortanPanelSuite* panel = VortanAcquirePanelSuite(basicSuite);
    (void)pluginId;
    (void)refcon;
    if (panel == NULL)
        return 0;
    (void)panel->PanelNotify(panel->panelRef, "Pulse Effector added");
    (void)panel->RefreshPanel(panel->panelRef);
    VortanReleasePanelSuite(basicSuite);
    return 0;
}

static void openPanelAndWelcome(const VortanBasicSuite* basicSuite)
{
    const VortanPanelSuite* panel = VortanAcquirePanelSuite(basicSuite);
    const VortanIdleSuite* idle = VortanAcquireIdleSuite(basicSuite);
    if (panel != NULL)
    {
        (void)panel->OpenPanel(panel->panelRef, 0);
        VortanReleasePanelSuite(basicSuite);
    }
    if (idle != NULL)
    {
        (void)idle->AddFuncToIdleStack(idle->ref, &welcome, NULL);
        VortanReleaseIdleSuite(basicSuite);
    }
}

// ---- What the effect does; the real host's entry point calls the same functions

static void applied(Pulse* pulse, const VortanBasicSuite* basicSuite)
{
    pulse->family = VortanKeepNew();
    openPanelAndWelcome(basicSuite);
}

static void copied(Pulse* pulse) { pulse->family = VortanKeepCopy(&pulse->family); }

static void message(Pulse* pulse, const VortanBasicSuite* basicSuite, void* record, size_t size)
{
    const int16_t before = pulse->family.group;
    char text[64];
    if (VortanAnswer(&pulse->family, record, size) != VORTAN_SET_GROUP || pulse->family.group == before)
        return;
    if (pulse->family.group == VORTAN_GROUP_TOP)
        (void)snprintf(text, sizeof text, "Pulse Effector in no group");
    else
        (void)snprintf(text, sizeof text, "Pulse Effector in group %d", pulse->family.group);
    notify(basicSuite, text);
}

// ---- The stand-in's entry point

int32_t VortanTryEffect(int32_t call, const VortanBasicSuite* basicSuite, void* kept, void* record,
                        size_t recordSize)
{
    static const VortanTryDescription description = {"QVK VORTEFF Pulse Effector", "Vortan Pulse Effector"};
    Pulse pulse;
    if (call == VORTAN_TRY_DESCRIBE)
    {
        memcpy(record, &description, sizeof description);
        return 0;
    }
    memcpy(&pulse, kept, sizeof pulse);
    if (call == VORTAN_TRY_APPLIED)
        applied(&pulse, basicSuite);
    else if (call == VORTAN_TRY_COPIED)
        copied(&pulse);
    else if (call == VORTAN_TRY_MESSAGE)
        message(&pulse, basicSuite, record, recordSize);
    memcpy(kept, &pulse, sizeof pulse);
    return 0;
}
