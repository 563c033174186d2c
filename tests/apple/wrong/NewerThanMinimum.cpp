// Uses a function that the oldest supported macOS does not have.

#include <charconv>

char* WriteNumber(char* first, char* last, double value) { return std::to_chars(first, last, value).ptr; }
