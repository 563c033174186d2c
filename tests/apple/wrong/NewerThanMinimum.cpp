// Uses what the oldest macOS that the bundle is for does not have.

#include <charconv>

char* WriteNumber(char* first, char* last, double value) { return std::to_chars(first, last, value).ptr; }
