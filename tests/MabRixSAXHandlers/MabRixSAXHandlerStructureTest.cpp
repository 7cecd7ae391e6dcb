#include <gtest/gtest.h>

#include "MabRixObjectTestSupport.h"
#include "MabRixSAXHandlerStructure.h"
#include "MabRixTestDirect.h"

namespace
{
const char* const File = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerStructure";
const char* const NoObject = "ExpressionCheck:pPointerObject";

// A context holding one minor object per CAD id.
struct StructureTest
{
  explicit StructureTest(std::initializer_list<const char*> iCADIDs)
  {
    for (const char* CADID : iCADIDs)
      _Context.Get()->CreateMinorObject(MabRixObjectID(KelUnicodeString(CADID)), "T", CADID, "A", "1", TRUE)->Release();
  }

  MabRixTestReading Read(const std::string& iXml, int iRootLevel = 0)
  {
    MabRixTNRObjectContext* pContext = _Context.Get();
    return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerStructure>(pContext, iRootLevel));
  }

  bool Pointer(const char* iCADID)
  {
    return KelImplCast<MabERixMinorObject>(
               _Context.Get()->GetMinorObject(MabRixObjectID(KelUnicodeString(iCADID))).Get())
        ->_bPointer;
  }

  // Each relation as "from -rid-> to".
  std::vector<std::string> Relations() const
  {
    std::vector<std::string> Result;
    for (const MabERixRelation_var& spRelation : _Context.Get()->GetRelations())
      Result.push_back(spRelation->GetFromObjectID().GetID().ToUtf8() + " -" +
                       spRelation->GetRelationshipID().ToUtf8() + "-> " + spRelation->GetToObjectID().GetID().ToUtf8());
    return Result;
  }

  MabRixTestContext _Context;
};

typedef std::vector<std::string> Texts;
}  // namespace

TEST(MabRixSAXHandlerStructure, RootLevelZeroMarksEveryObjectButTheOutermostOnes)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  StructureTest Tree({"top1", "top2", "child", "grandchild"});
  const MabRixTestReading Reading = Tree.Read(
      "<structure>"
      "<cadobject cadid='top1'><cadobject cadid='child'><cadobject cadid='grandchild'/></cadobject></cadobject>"
      "<cadobject cadid='top2'/>"
      "</structure>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_FALSE(Tree.Pointer("top1"));
  EXPECT_FALSE(Tree.Pointer("top2"));
  EXPECT_TRUE(Tree.Pointer("child"));
  EXPECT_TRUE(Tree.Pointer("grandchild"));
  EXPECT_TRUE(Reading.Values().empty());
}

TEST(MabRixSAXHandlerStructure, AnotherRootLevelLeavesOnlyThatLevelUnmarked)
{
  StructureTest Tree({"top", "child", "grandchild"});
  Tree.Read(
      "<s><cadobject cadid='top'><cadobject cadid='child'><cadobject cadid='grandchild'/></cadobject>"
      "</cadobject></s>",
      1);
  EXPECT_TRUE(Tree.Pointer("top"));
  EXPECT_FALSE(Tree.Pointer("child"));
  EXPECT_TRUE(Tree.Pointer("grandchild"));
}

TEST(MabRixSAXHandlerStructure, TheFlagIsNeverCleared)
{
  StructureTest Tree({"top"});
  Tree.Read("<s><cadobject cadid='top'/></s>", 1);
  ASSERT_TRUE(Tree.Pointer("top"));
  Tree.Read("<s><cadobject cadid='top'/></s>", 0);
  EXPECT_TRUE(Tree.Pointer("top"));
}

TEST(MabRixSAXHandlerStructure, RelationshipRelatesTheEnclosingObjectToTheInnermostOne)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  StructureTest Tree({"outer", "middle", "inner"});
  const MabRixTestReading Reading = Tree.Read(
      "<structure><cadobject cadid='outer'>"
      "<cadobject cadid='middle'>"
      "<cadobject cadid='inner'><relationship rid='R-inner'/></cadobject>"
      "<relationship rid='R-middle'/>"
      "</cadobject>"
      "</cadobject></structure>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_EQ(Tree.Relations(), (Texts{"middle -R-inner-> inner", "outer -R-middle-> middle"}));
  // The handler keeps no reference to the relations.
  for (const MabERixRelation_var& spRelation : Tree._Context.Get()->GetRelations())
    EXPECT_EQ(spRelation->GetRefCount(), 1u);
}

TEST(MabRixSAXHandlerStructure, TwoRelationshipsInOneObjectGiveTwoRelationsAndTheSecondIdIsEmptyWithoutRid)
{
  StructureTest Tree({"outer", "inner"});
  Tree.Read(
      "<s><cadobject cadid='outer'><cadobject cadid='inner'>"
      "<relationship rid='R1'/><relationship/>"
      "</cadobject></cadobject></s>");
  EXPECT_EQ(Tree.Relations(), (Texts{"outer -R1-> inner", "outer --> inner"}));
}

TEST(MabRixSAXHandlerStructure, RelationshipWithoutRidInsideItsElementKeepsTheIdUntilItEnds)
{
  // "rid" is read when relationship starts and emptied when it ends: a
  // nested relationship without "rid" takes the enclosing one's.
  StructureTest Tree({"outer", "inner"});
  Tree.Read(
      "<s><cadobject cadid='outer'><cadobject cadid='inner'>"
      "<relationship rid='R1'><relationship/></relationship>"
      "</cadobject></cadobject></s>");
  EXPECT_EQ(Tree.Relations(), (Texts{"outer -R1-> inner", "outer --> inner"}));
}

TEST(MabRixSAXHandlerStructure, RelationshipAtTheOutermostLevelRelatesFromAnEmptyId)
{
  StructureTest Tree({"top"});
  const MabRixTestReading Reading = Tree.Read("<s><cadobject cadid='top'><relationship rid='R'/></cadobject></s>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(Tree.Relations(), (Texts{" -R-> top"}));
}

TEST(MabRixSAXHandlerStructure, EndOfCadObjectWithAnEmptyStackFailsTheCheck)
{
  StructureTest Tree({});
  MabRixTNRObjectContext* pContext = Tree._Context.Get();
  {
    // The handler started on a cadobject sees its own end with nothing pushed.
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabRixTestReading Reading =
        MabRixRead("<cadobject cadid='self'/>", MabRixMake<MabRixSAXHandlerStructure>(pContext, 0));
    EXPECT_EQ(Reading._Result, E_FAIL);
    ASSERT_EQ(Reporter.Reports().size(), 1u);
    EXPECT_EQ(Reporter.Reports()[0]._Text, "ExpressionCheck:_PointerIndex >= 0");
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
  }
  {
    // Going on, the empty id is looked up in vain and the index falls below -1.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    const MabRixTestReading Reading =
        MabRixRead("<cadobject cadid='self'/>", MabRixMake<MabRixSAXHandlerStructure>(pContext, 0));
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Texts(),
              (Texts{"ExpressionCheck:_PointerIndex >= 0", NoObject, "ExpressionCheck:_PointerIndex >= -1"}));
  }
}

TEST(MabRixSAXHandlerStructure, UnknownObjectIsReportedAndLeftAlone)
{
  StructureTest Tree({"known"});
  for (const int Answer : {MabRixTestReporter::Stop, MabRixTestReporter::GoOn})
  {
    MabRixTestReporter Reporter(Answer);
    const MabRixTestReading Reading =
        Tree.Read("<s><cadobject cadid='known'><cadobject cadid='unknown'/><cadobject/></cadobject></s>");
    EXPECT_EQ(Reading._Result, S_OK);
    ASSERT_EQ(Reporter.Reports().size(), 2u);
    EXPECT_EQ(Reporter.Reports()[0]._Text, NoObject);
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
    EXPECT_EQ(Reporter.Count(NoObject), 2);
    EXPECT_FALSE(Tree.Pointer("known"));
  }
}

TEST(MabRixSAXHandlerStructure, WithoutAContextTheConstructorReportsAndEveryEndFails)
{
  MabRixTNRObjectContext* pNoContext = nullptr;
  {
    MabRixTestReporter Reporter(MabRixTestReporter::Stop);
    const MabRixTestReading Reading =
        MabRixRead("<s><cadobject cadid='a'/></s>", MabRixMake<MabRixSAXHandlerStructure>(pNoContext, 0));
    EXPECT_EQ(Reading._Result, E_FAIL);
    EXPECT_EQ(Reporter.Texts(), (Texts{"ExpressionCheck:pObjectContext", "ExpressionCheck:_pObjectContext",
                                       "ExpressionCheck:_pObjectContext"}));
    EXPECT_EQ(Reporter.Reports()[0]._File, File);
    // The list's end did not reach StopIfNecessary: the parser stayed.
    EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), 0);
  }
  {
    // Going on, the objects are still counted and nothing is looked up.
    MabRixTestReporter Reporter(MabRixTestReporter::GoOn);
    const MabRixTestReading Reading = MabRixRead("<s><cadobject cadid='a'><relationship rid='r'/></cadobject></s>",
                                                 MabRixMake<MabRixSAXHandlerStructure>(pNoContext, 0));
    EXPECT_EQ(Reading._Result, S_OK);
    EXPECT_EQ(Reporter.Count("ExpressionCheck:_pObjectContext"), 3);
    EXPECT_EQ(Reporter.Count(NoObject), 1);
    EXPECT_EQ(KelImplCast<MabRixSAXHandlerBase>(Reading.Handler().Get())->GetDepth(), -1);
  }
}

TEST(MabRixSAXHandlerStructure, NullAttributeListPushesAnEmptyIdAndKeepsTheRelationshipId)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  StructureTest Tree({"outer"});
  MabRixTestParent Parent;
  MabRixTNRObjectContext* pContext = Tree._Context.Get();
  KelVar<MabRixSAXHandlerStructure> spHandler =
      KelVar<MabRixSAXHandlerStructure>::Adopt(new MabRixSAXHandlerStructure(Parent.Root(), pContext, 0));
  spHandler->StartElement("cadobject", MabRixTestAttributeList::Make({{"cadid", "outer"}}));
  spHandler->StartElement("cadobject", KelISAXAttributeList_var());
  spHandler->StartElement("relationship", MabRixTestAttributeList::Make({{"rid", "R"}}));
  spHandler->StartElement("relationship", KelISAXAttributeList_var());
  EXPECT_EQ(spHandler->EndElement("relationship"), S_OK);
  EXPECT_EQ(Tree.Relations(), (Texts{"outer -R-> "}));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerStructure, IsRegisteredAsAHandler)
{
  MabRixTestParent Parent;
  MabRixTestContext Context;
  MabRixTNRObjectContext* pContext = Context.Get();
  KelVar<MabRixSAXHandlerStructure> spHandler =
      KelVar<MabRixSAXHandlerStructure>::Adopt(new MabRixSAXHandlerStructure(Parent.Root(), pContext, 0));
  MabIRixSAXHandler_var spInterface(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerStructure(*spHandler));
  EXPECT_STREQ(spInterface->GetImpl()->IsA(), "MabRixSAXHandlerStructure");
  EXPECT_TRUE(spInterface->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
}
