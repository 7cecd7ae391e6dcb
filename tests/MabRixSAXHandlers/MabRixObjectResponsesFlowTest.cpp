// The command layer's typical sequence: an object list read into a TNR
// context, then a structure response and a relationship list read into the
// same context.
#include <gtest/gtest.h>

#include "MabRixObjectTestSupport.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixSAXHandlerRelationshipList.h"
#include "MabRixSAXHandlerStructure.h"

namespace
{
const char* const ObjectList =
    "<cadobjectlist>"
    "<cadobject cadid='C-frame' zqtype='ZQ_Assembly' name='frame.asm' zqversion='A.1' type='assembly'"
    " busid='B-frame' dirname='[ALIAS|Work Area]' filename='frame.asm'><State>In Work</State></cadobject>"
    "<cadobject cadid='C-bracket' zqtype='ZQ_Part' name='bracket.prt' zqversion='B.4' type='component'"
    " busid='B-bracket' filename='bracket.prt'/>"
    "<cadobject cadid='C-bolt' zqtype='ZQ_Part' name='bolt.prt' zqversion='A.2' type='component'"
    " busid='B-bolt' filename='bolt.prt'/>"
    "</cadobjectlist>";

const char* const Structure =
    "<structure>"
    "<cadobject cadid='C-frame'>"
    "<cadobject cadid='C-bracket'><relationship rid='R-frame-bracket'/>"
    "<cadobject cadid='C-bolt'><relationship rid='R-bracket-bolt'/></cadobject>"
    "</cadobject>"
    "<cadobject cadid='C-bolt'><relationship rid='R-frame-bolt'/></cadobject>"
    "</cadobject>"
    "</structure>";

const char* const Relationships =
    "<relationships>"
    "<relationship rid='R-frame-bracket' cadrelationship='ZQ_Uses' quantity='1'>"
    "<attribute><name>position</name><value>top</value></attribute></relationship>"
    "<relationship rid='R-bracket-bolt' cadrelationship='ZQ_Uses' quantity='4'/>"
    "<relationship rid='R-frame-bolt' cadrelationship='ZQ_Uses' quantity='2'>"
    "<attribute><name>quantity</name><value>99</value></attribute>"
    "<attribute><name>torque</name><value>12 Nm</value></attribute></relationship>"
    "</relationships>";

bool PointerOf(MabRixTNRObjectContext& iContext, const char* iCADID)
{
  const KelBaseUnknown_var spObject = iContext.GetMinorObject(MabRixObjectID(KelUnicodeString(iCADID)));
  const MabERixMinorObject* pMinor = KelImplCast<MabERixMinorObject>(spObject.Get());
  return pMinor && pMinor->_bPointer;
}
}  // namespace

TEST(MabRixObjectResponses, ObjectListThenStructureThenRelationshipsFillOneContext)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  KelError::KelCleanLastError();
  MabRixTestContext Context;
  MabRixTNRObjectContext* pContext = Context.Get();

  EXPECT_EQ(MabRixRead(ObjectList, MabRixMake<MabRixSAXHandlerObjectList>(pContext))._Result, S_OK);
  ASSERT_EQ(Context.Minors(), 3u);
  EXPECT_EQ(MabRixDocumentIDOf(Context.Minor(0)), "assembly|frame.asm|KelDLN://Work Area/frame.asm");
  EXPECT_EQ(MabRixDocumentIDOf(Context.Minor(1)), "component|bracket.prt|KelDLN://Work Area/bracket.prt");
  EXPECT_EQ(MabRixDocumentIDOf(Context.Minor(2)), "component|bolt.prt|KelDLN://Work Area/bolt.prt");

  EXPECT_EQ(MabRixRead(Structure, MabRixMake<MabRixSAXHandlerStructure>(pContext, 0))._Result, S_OK);
  EXPECT_EQ(MabRixRead(Relationships, MabRixMake<MabRixSAXHandlerRelationshipList>(pContext))._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  EXPECT_FALSE(MabRixGetLastError()._Present);

  // Nothing was created by the later responses but relations and relationships.
  EXPECT_EQ(Context.Objects(), 3u);
  EXPECT_EQ(Context.Majors(), 3u);
  EXPECT_EQ(Context.Minors(), 3u);

  EXPECT_FALSE(PointerOf(*pContext, "C-frame"));
  EXPECT_TRUE(PointerOf(*pContext, "C-bracket"));
  EXPECT_TRUE(PointerOf(*pContext, "C-bolt"));

  std::vector<std::string> Relations;
  for (const MabERixRelation_var& spRelation : pContext->GetRelations())
    Relations.push_back(spRelation->GetFromObjectID().GetID().ToUtf8() + " " +
                        spRelation->GetRelationshipID().ToUtf8() + " " + spRelation->GetToObjectID().GetID().ToUtf8());
  EXPECT_EQ(Relations, (std::vector<std::string>{"C-frame R-frame-bracket C-bracket", "C-bracket R-bracket-bolt C-bolt",
                                                 "C-frame R-frame-bolt C-bolt"}));

  const std::vector<MabERixRelationship_var>& Relationships = pContext->GetRelationships();
  ASSERT_EQ(Relationships.size(), 3u);
  EXPECT_EQ(Relationships[0]->GetID(), "R-frame-bracket");
  EXPECT_EQ(Relationships[0]->GetKind(), "ZQ_Uses");
  EXPECT_EQ(MabRixEntriesOf(Relationships[0]->_Attributes), (MabRixEntries{{"quantity", "1"}, {"position", "top"}}));
  EXPECT_EQ(Relationships[1]->GetID(), "R-bracket-bolt");
  EXPECT_EQ(MabRixEntriesOf(Relationships[1]->_Attributes), (MabRixEntries{{"quantity", "4"}}));
  EXPECT_EQ(Relationships[2]->GetID(), "R-frame-bolt");
  EXPECT_EQ(MabRixEntriesOf(Relationships[2]->_Attributes), (MabRixEntries{{"quantity", "2"}, {"torque", "12 Nm"}}));

  // Every relation's ends are objects of the context.
  for (const MabERixRelation_var& spRelation : pContext->GetRelations())
  {
    EXPECT_TRUE(!!pContext->GetMinorObject(spRelation->GetFromObjectID()));
    EXPECT_TRUE(!!pContext->GetMinorObject(spRelation->GetToObjectID()));
  }
}
