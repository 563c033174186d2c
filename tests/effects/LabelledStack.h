#pragma once
// A layer whose effects go by short labels, for the tests of the operations that write to its stack.

#include "tests/support/ProductHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace standin
{
/// The match name of a label, by its first letter: geometry, effector, renderer, main effect, legacy effect,
/// kit effect; X is an effect from outside the family. A to D are geometry too, for stacks that are lettered.
inline const char* MatchNameOf(const std::string& label)
{
    switch (label.empty() ? '\0' : label.front())
    {
    case 'A':
    case 'B':
    case 'C':
    case 'D':
    case 'G':
        return "QVK VORTSRC Lamps";
    case 'E':
        return "QVK VORTEFF Jitter";
    case 'R':
        return "QVK VORTREN Dots";
    case 'M':
        return "QVK VORTAN TWO";
    case 'L':
        return "QVK VORTAN";
    case 'K':
        return "QVK VORTKIT";
    case 'X':
        return "ADBE Fill";
    default:
        throw std::logic_error("no effect goes by " + label);
    }
}

struct LabelledStack : ProductHost
{
    explicit LabelledStack(const std::string& labels = "", HostOptions options = {}) : ProductHost(options)
    {
        std::istringstream words(labels);
        for (std::string label; words >> label;)
            (void)Add(MatchNameOf(label), label);
        host.ClearTrace();
    }

    std::string Stack() const { return host.StackText(layerId); }
    A_long KeyOf(const std::string& label) const { return Key(MatchNameOf(label)); }

    /// What `operation` returns when the host's hook calls it. What it prints goes to `printed`.
    template <class Operation>
    int InHook(Operation operation)
    {
        int result = 0;
        ::testing::internal::CaptureStdout();
        const HookResult hook = host.RunInHook([&] { result = operation(); });
        printed += ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(hook.thrown, "");
        return result;
    }

    std::string printed;

    /// Gives the effects that the test has not named the label "new".
    void LabelNewEffects()
    {
        for (EffectInstance& effect : host.State().FindLayer(layerId)->effects)
        {
            if (effect.label == "e" + std::to_string(effect.id))
                effect.label = "new";
        }
    }
};

/// A test on one layer. At its end nothing has been printed, no suite is held, and the host has found nothing
/// but what the test expected.
class LabelledStackTest : public ::testing::Test
{
protected:
    void TearDown() override { expectAllIsWell(); }

    /// A fresh host with this stack on its layer.
    LabelledStack& Build(const std::string& labels, HostOptions options = {})
    {
        expectAllIsWell();
        on.reset();
        on = std::make_unique<LabelledStack>(labels, options);
        return *on;
    }

    std::unique_ptr<LabelledStack> on;

private:
    void expectAllIsWell() const
    {
        if (on == nullptr)
            return;
        EXPECT_EQ(on->printed, "");
        on->host.CheckSuiteBalance();
        EXPECT_EQ(on->host.FindingsReport(), "");
    }
};
} // namespace standin
