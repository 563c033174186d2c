#pragma once
// The whole product in one process with the stand-in host, as a user has it before them: the real tree in a
// real X11 window of a plain host, real mouse and key events, and the host's idle.

#include "panel/Panelator.h"
#include "standin/x11/XHostWindow.h"
#include "standin/x11/XTestInput.h"
#include "standin/x11/Xvfb.h"
#include "tests/support/ProductHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace standin
{
class PanelSession : public testing::Test, private ContainerProvider
{
protected:
    PanelSession();
    ~PanelSession() override;

    /// Puts the panel up and runs idle passes until they are quiet.
    void OpenPanel();

    // Idle.
    HookResult Idle() { return product.host.RunIdle(); }
    /// Runs idle passes until the condition holds; false if it does not within a generous limit.
    bool IdleUntil(const std::function<bool()>& condition);
    /// Runs idle passes until two in a row only looked.
    void Settle();

    // The tree, as a person sees it.
    /// "Layer(Group 1(a b) c)"; a selected row carries a "*", a closed one with rows below it a "+".
    std::string Shape();
    std::vector<std::string> TreeNames();

    // What a person does in the panel. Rows go by the name that they were given.
    void ClickRow(const std::string& name);
    void ClickBox(const std::string& name);
    void DragRowBelow(const std::string& name, const std::string& target);
    void DragRowAbove(const std::string& name, const std::string& target);
    void ClickButton(const std::string& text);
    void PressKey(const std::string& key);
    void TypeName(const std::string& name);

    // The layer.
    void Add(const std::string& matchName, const std::string& label, const std::string& name);
    std::string Stack() { return product.host.StackText(product.layerId); }
    int GroupOf(const std::string& label) { return product.host.Effect(label).family.group; }
    bool IsActive(const std::string& label) { return (product.host.Effect(label).flags & 1) != 0; }

    Xvfb server{1000, 700};
    XTestInput user;
    XHostWindow window{40, 30, 360, 460};
    ProductHost product;
    Panelator* panelator = nullptr;

private:
    struct Point
    {
        int x;
        int y;
    };
    Point RowPoint(const std::string& name, int fromTop, int fromLeft);
    void Click(Point at);
    void Drag(Point from, Point to);

    void* MakeContainer(const std::string& panelName) override;
    void DestroyContainer(void* container) override;
};
} // namespace standin
