#include "tests/tree/support/TreeTest.h"
#include "tree/platform/x11/TreeX11.h"

#include <gtest/gtest.h>

using namespace standin;

namespace
{
class CountedAttachment : public TreeAttachment
{
public:
    void OnTreeGone() override { ++timesTold; }

    int timesTold = 0;
};

class Attachment : public TreeTest
{
protected:
    const std::shared_ptr<CountedAttachment> first = std::make_shared<CountedAttachment>();
    const std::shared_ptr<CountedAttachment> second = std::make_shared<CountedAttachment>();
};
} // namespace

TEST_F(Attachment, IsToldThatItsWidgetHasGone)
{
    EXPECT_EQ(GetTreeAttachment(panel), nullptr);
    SetTreeAttachment(panel, first);
    EXPECT_EQ(GetTreeAttachment(panel), first);
    EXPECT_EQ(first->timesTold, 0);
    deleteWidget();
    EXPECT_EQ(first->timesTold, 1);
}

TEST_F(Attachment, IsToldThatAnotherTakesItsPlace)
{
    SetTreeAttachment(panel, first);
    SetTreeAttachment(panel, second);
    EXPECT_EQ(GetTreeAttachment(panel), second);
    EXPECT_EQ(first->timesTold, 1);
    deleteWidget();
    EXPECT_EQ(first->timesTold, 1);
    EXPECT_EQ(second->timesTold, 1);
}

TEST_F(Attachment, IsTakenAwayByNull)
{
    SetTreeAttachment(panel, nullptr);
    EXPECT_EQ(GetTreeAttachment(panel), nullptr);
    SetTreeAttachment(panel, first);
    SetTreeAttachment(panel, nullptr);
    EXPECT_EQ(GetTreeAttachment(panel), nullptr);
    EXPECT_EQ(first->timesTold, 1);
    deleteWidget();
    EXPECT_EQ(first->timesTold, 1);
}

TEST_F(Attachment, OfNoWidgetIsNone)
{
    SetTreeAttachment(nullptr, first);
    EXPECT_EQ(GetTreeAttachment(nullptr), nullptr);
    EXPECT_EQ(first->timesTold, 0);
}
