#pragma once
// Ties each table of HostSuites.h to the name and version under which the host hands it out.

#include "host/HostSuites.h"

/// `i_name` is the suite's name; `i_version` the version whose table `Suite` describes.
template <class Suite>
struct SuiteTraits;

#define VORTAN_SUITE_TRAITS(suite, name, version)                                                            \
    template <>                                                                                              \
    struct SuiteTraits<suite>                                                                                \
    {                                                                                                        \
        static constexpr const char* i_name = name;                                                          \
        static constexpr std::int32_t i_version = version;                                                   \
    }

VORTAN_SUITE_TRAITS(AEGP_CommandSuite1, "AEGP Command Suite", 1);
VORTAN_SUITE_TRAITS(AEGP_DynamicStreamSuite2, "AEGP Dynamic Stream Suite", 2);
VORTAN_SUITE_TRAITS(AEGP_DynamicStreamSuite4, "AEGP Dynamic Stream Suite", 5);
VORTAN_SUITE_TRAITS(AEGP_EffectSuite1, "AEGP Effect Suite", 1);
VORTAN_SUITE_TRAITS(AEGP_EffectSuite3, "AEGP Effect Suite", 3);
VORTAN_SUITE_TRAITS(AEGP_ItemSuite1, "AEGP Item Suite", 3);
VORTAN_SUITE_TRAITS(AEGP_LayerSuite1, "AEGP Layer Suite", 5);
VORTAN_SUITE_TRAITS(AEGP_RegisterSuite5, "AEGP Register Suite", 6);
VORTAN_SUITE_TRAITS(AEGP_StreamSuite1, "AEGP Stream Suite", 4);
VORTAN_SUITE_TRAITS(AEGP_StreamSuite2, "AEGP Stream Suite", 7);
VORTAN_SUITE_TRAITS(AEGP_UtilitySuite1, "AEGP Utility Suite", 3);
VORTAN_SUITE_TRAITS(AEGP_UtilitySuite3, "AEGP Utility Suite", 7);
VORTAN_SUITE_TRAITS(AEGP_UtilitySuite5, "AEGP Utility Suite", 11);
VORTAN_SUITE_TRAITS(AEGP_PanelSuite1, "AEGP Workspace Panel Suite", 1);
VORTAN_SUITE_TRAITS(PFAppSuite4, "PF AE App Suite", 6);
VORTAN_SUITE_TRAITS(SPSuitesSuite, "SP Suites Suite", 2);

#undef VORTAN_SUITE_TRAITS
