// Has the headers of the test framework compiled once, for all test programs.

int main() { return 0; }
