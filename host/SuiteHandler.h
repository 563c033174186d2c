#pragma once
// Hands out the host's suites on demand and gives them back together.

#include "host/SuiteTraits.h"

#include <tuple>

/// Acquires each suite at its first use and releases all that it acquired when it is destroyed.
/// Small enough to be made on the stack by every function that needs a few suites for one call.
/// Two handlers are independent: each holds acquisitions of its own.
class AEGP_SuiteHandler
{
public:
    /// Throws the integer 516 if `hostBasicSuite` is null. Makes no host call.
    explicit AEGP_SuiteHandler(const SPBasicSuite* hostBasicSuite);

    /// Releases the suites. Terminates the program if the host throws through a release.
    ~AEGP_SuiteHandler();

    AEGP_SuiteHandler(const AEGP_SuiteHandler&) = delete;
    AEGP_SuiteHandler& operator=(const AEGP_SuiteHandler&) = delete;

    // Each accessor throws the integer 516 if the host has no such suite. The table stays valid until
    // the handler is destroyed.
    const AEGP_CommandSuite1* CommandSuite1() const { return Get<AEGP_CommandSuite1>(); }
    const AEGP_DynamicStreamSuite2* DynamicStreamSuite2() const { return Get<AEGP_DynamicStreamSuite2>(); }
    const AEGP_DynamicStreamSuite4* DynamicStreamSuite4() const { return Get<AEGP_DynamicStreamSuite4>(); }
    const AEGP_EffectSuite1* EffectSuite1() const { return Get<AEGP_EffectSuite1>(); }
    const AEGP_EffectSuite3* EffectSuite3() const { return Get<AEGP_EffectSuite3>(); }
    const AEGP_ItemSuite1* ItemSuite1() const { return Get<AEGP_ItemSuite1>(); }
    const AEGP_LayerSuite1* LayerSuite1() const { return Get<AEGP_LayerSuite1>(); }
    const AEGP_RegisterSuite5* RegisterSuite5() const { return Get<AEGP_RegisterSuite5>(); }
    const AEGP_StreamSuite1* StreamSuite1() const { return Get<AEGP_StreamSuite1>(); }
    const AEGP_StreamSuite2* StreamSuite2() const { return Get<AEGP_StreamSuite2>(); }
    const AEGP_UtilitySuite1* UtilitySuite1() const { return Get<AEGP_UtilitySuite1>(); }
    const AEGP_UtilitySuite3* UtilitySuite3() const { return Get<AEGP_UtilitySuite3>(); }
    const AEGP_UtilitySuite5* UtilitySuite5() const { return Get<AEGP_UtilitySuite5>(); }
    const PFAppSuite4* AppSuite4() const { return Get<PFAppSuite4>(); }
    const SPSuitesSuite* SuitesSuite() const { return Get<SPSuitesSuite>(); }

    /// The accessors by type, for code that is generic over the suite's version.
    template <class Suite>
    const Suite* Get() const
    {
        const Suite*& slot = std::get<const Suite*>(slots);
        if (slot == nullptr)
        {
            const void* table = Acquire(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
            // The host may have called a hook of ours inside the acquisition, which has filled the slot.
            if (slot == nullptr)
                slot = static_cast<const Suite*>(table);
            else
                (void)basicSuite->ReleaseSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
        }
        return slot;
    }

    /// Releases every suite acquired so far, in the order of the accessors above.
    /// Kept: the slots are not cleared, so a suite that is released here is released again by the destructor.
    void ReleaseAllSuites() const;

    /// Throws the integer 516. Never returns.
    [[noreturn]] void MissingSuiteError() const;

private:
    const void* Acquire(const char* name, std::int32_t version) const;

    const SPBasicSuite* basicSuite;
    mutable std::tuple<const AEGP_CommandSuite1*, const AEGP_DynamicStreamSuite2*,
                       const AEGP_DynamicStreamSuite4*, const AEGP_EffectSuite1*, const AEGP_EffectSuite3*,
                       const AEGP_ItemSuite1*, const AEGP_LayerSuite1*, const AEGP_RegisterSuite5*,
                       const AEGP_StreamSuite1*, const AEGP_StreamSuite2*, const AEGP_UtilitySuite1*,
                       const AEGP_UtilitySuite3*, const AEGP_UtilitySuite5*, const PFAppSuite4*,
                       const SPSuitesSuite*>
        slots{};
};
