#pragma once
// The functions that take a locale, beyond those of POSIX.

#include <locale.h>
#include <stdio.h>
#include <wchar.h>

__BEGIN_DECLS
int asprintf_l(char** text, locale_t, const char* format, ...);
int snprintf_l(char* text, size_t size, locale_t, const char* format, ...);
int sscanf_l(const char* text, locale_t, const char* format, ...);
struct lconv* localeconv_l(locale_t);
__END_DECLS
