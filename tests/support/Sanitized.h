#pragma once
// Tells a build with the address and undefined-behaviour sanitizers from one without.

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VORTAN_TESTS_ARE_SANITIZED 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define VORTAN_TESTS_ARE_SANITIZED 1
#endif
