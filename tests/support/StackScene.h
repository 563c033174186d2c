#pragma once
#include "tests/support/LabelledStack.h"

namespace standin
{
using StackScene = LabelledStack;
} // namespace standin
