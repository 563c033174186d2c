#pragma once
// While an object of this class lives, what the process prints goes nowhere.

namespace standin::process
{
class Silence
{
public:
    Silence();
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int formerOutput;
};
} // namespace standin::process
