#pragma once
// The whole product in one process with the stand-in host, as a user sees it: the real tree in a
// real X11 window of a plain host, real mouse and key events, and the host's idle.

#include "panel/Panelator.h"
#include "standin/user/HostWindow.h"
#include "standin/user/User.h"
#include "tests/support/ProductHost.h"
#include "tests/tree/support/TreeShape.h"
#include "tree/ValueTreesDemo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standin
{
class PanelSession : public testing::Test, protected user::User
{
protected:
    PanelSession();
    ~PanelSession() override;

    /// Puts the panel up and runs idle passes until they are quiet.
    void OpenPanel();

    // Idle.
    void Idle() override { EXPECT_EQ(product.host.RunIdle().thrown, ""); }
    user::Area PanelArea() const override { return window.ContainerOnScreen(); }
    /// Idles until several passes in a row changed nothing.
    void Settle();

    // The tree, as a person sees it.
    /// "Layer(Group 1(a b) c)"; a selected row carries a "*", a closed one with rows below it a "+".
    std::string Shape() { return ShapeOf(panelator->tree->treeView); }
    std::vector<std::string> TreeNames();

    // What a person does in the panel. Rows go by the name that they were given.
    void ClickRow(const std::string& name);
    void ClickBox(const std::string& name);
    void DragRowBelow(const std::string& name, const std::string& target);
    void DragRowAbove(const std::string& name, const std::string& target);
    void ClickButton(const std::string& text);
    /// And a pass after it.
    void Key(const std::string& name);
    void TypeName(const std::string& name);

    // The layer.
    void Add(const std::string& matchName, const std::string& label, const std::string& name);
    std::string Stack() { return product.host.StackText(product.layerId); }
    int GroupOf(const std::string& label) { return product.host.Effect(label).family.group; }
    bool IsActive(const std::string& label) { return (product.host.Effect(label).flags & 1) != 0; }

    user::HostWindow window;
    ProductHost product;
    Panelator* panelator = nullptr;

private:
    user::Place InRow(const std::string& name, user::Place place);
    void ClickAndIdle(user::Place at);
};
} // namespace standin
