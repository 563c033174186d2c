#pragma once
// The versions of macOS, in the two spellings that there are for them. The newest is that of the SDK that the
// bundle is built with, the oldest is the compiler's option.

#define MAC_OS_X_VERSION_10_9 1090
#define MAC_OS_X_VERSION_10_14 101400
#define MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__

#define __MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
#define __MAC_OS_X_VERSION_MAX_ALLOWED 150500
