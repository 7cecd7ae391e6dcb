#include <gtest/gtest.h>

#include "MabRixCADObjectContext.h"
#include "MabRixTNRObjectContext.h"

namespace
{
template <class T>
KelVar<T> Own(T* ipCreated)
{
  return KelVar<T>::Adopt(ipCreated);
}
}  // namespace

TEST(MabRixTNRObjectContext, RepeatedCreationGivesTheSameObjectWithANewReference)
{
  MabRixTNRObjectContext Context;
  MabERixObject* pFirst = Context.CreateObject("Part", "P1");
  EXPECT_EQ(pFirst->GetRefCount(), 2u);  // context + caller
  MabERixObject* pSecond = Context.CreateObject("Part", "P1");
  EXPECT_EQ(pSecond, pFirst);
  EXPECT_EQ(pFirst->GetRefCount(), 3u);
  pSecond->Release();
  pFirst->Release();
  EXPECT_EQ(pFirst->GetRefCount(), 1u);
  const auto spOther = Own(Context.CreateObject("Part", "P2"));
  const auto spOtherType = Own(Context.CreateObject("Assembly", "P1"));
  EXPECT_NE(spOther.Get(), pFirst);
  ASSERT_EQ(Context.GetObjects().size(), 3u);
  EXPECT_EQ(Context.GetObjects()[0].Get(), pFirst);
  EXPECT_EQ(Context.GetObjects()[1].Get(), spOther.Get());
  EXPECT_EQ(Context.GetObjects()[2].Get(), spOtherType.Get());
}

TEST(MabRixTNRObjectContext, MajorObjectsAreKeyedByTypeNameAndRevision)
{
  MabRixTNRObjectContext Context;
  const auto spA = Own(Context.CreateMajorObject("Part", "P1", "A"));
  const auto spA2 = Own(Context.CreateMajorObject("Part", "P1", "A"));
  const auto spB = Own(Context.CreateMajorObject("Part", "P1", "B"));
  EXPECT_EQ(spA.Get(), spA2.Get());
  EXPECT_NE(spA.Get(), spB.Get());
  EXPECT_EQ(spB->GetKeyRevision(), "B");
  // Both belong to the one object of the type and name, made with them.
  ASSERT_EQ(Context.GetObjects().size(), 1u);
  EXPECT_EQ(spA->GetOwnerObject(), Context.GetObjects()[0].Get());
  EXPECT_EQ(spB->GetOwnerObject(), Context.GetObjects()[0].Get());
  EXPECT_EQ(Context.GetMajorObjects().size(), 2u);
}

TEST(MabRixTNRObjectContext, MinorObjectIsKeyedByItsIDAndFoundByTheCADIdAlone)
{
  MabRixTNRObjectContext Context;
  const auto spMinor = Own(Context.CreateMinorObject(MabRixObjectID("C1"), "Part", "P1", "A", "1", TRUE));
  const auto spSame = Own(Context.CreateMinorObject(MabRixObjectID("C1"), "Part", "P1", "A", "2", TRUE));
  EXPECT_EQ(spMinor.Get(), spSame.Get());
  EXPECT_EQ(spMinor->GetKeyVersion(), "1");
  KelBaseUnknown_var spFound = Context.GetMinorObject(MabRixObjectID("C1"));
  EXPECT_EQ(KelImplCast<MabERixMinorObject>(spFound.Get()), spMinor.Get());
  EXPECT_TRUE(!Context.GetMinorObject(MabRixObjectID("C2")));
  EXPECT_TRUE(!Context.GetMinorObject(MabRixObjectID("Part", "P1")));
}

TEST(MabRixTNRObjectContext, MinorObjectLookupWithoutCreationGivesNullWhenAbsent)
{
  MabRixTNRObjectContext Context;
  EXPECT_EQ(Context.CreateMinorObject(MabRixObjectID("C1"), "Part", "P1", "A", "1", FALSE), nullptr);
  EXPECT_TRUE(Context.GetMinorObjects().empty());
  const auto spMinor = Own(Context.CreateMinorObject(MabRixObjectID("C1"), "Part", "P1", "A", "1", TRUE));
  const auto spFound = Own(Context.CreateMinorObject(MabRixObjectID("C1"), "", "", "", "", FALSE));
  EXPECT_EQ(spFound.Get(), spMinor.Get());
}

TEST(MabRixTNRObjectContext, GetObjectFindsByTypeAndName)
{
  MabRixTNRObjectContext Context;
  const auto spObject = Own(Context.CreateObject("Part", "P1"));
  EXPECT_EQ(Context.GetObject(MabRixObjectID("Part", "P1")).Get(), static_cast<KelBaseUnknown*>(spObject.Get()));
  EXPECT_TRUE(!Context.GetObject(MabRixObjectID("Part", "P2")));
}

TEST(MabRixTNRObjectContext, RelationshipStaysTheContextsAndIsKeyedByIdAndKind)
{
  MabRixTNRObjectContext Context;
  MabERixRelationship* pRelationship = Context.CreateRelationship("R1", "child");
  EXPECT_EQ(pRelationship->GetRefCount(), 1u);  // no reference for the caller
  EXPECT_EQ(Context.CreateRelationship("R1", "child"), pRelationship);
  EXPECT_NE(Context.CreateRelationship("R1", "other"), pRelationship);
  pRelationship->_Attributes.Insert("a", "1");
  ASSERT_EQ(Context.GetRelationships().size(), 2u);
  EXPECT_EQ(Context.GetRelationships()[0]->GetID(), "R1");
  EXPECT_EQ(Context.GetRelationships()[0]->GetKind(), "child");
  EXPECT_EQ(Context.GetRelationships()[0]->_Attributes["a"], "1");
}

TEST(MabRixTNRObjectContext, RelationIsGotOrCreatedWithANewReference)
{
  MabRixTNRObjectContext Context;
  const auto spRelation = Own(Context.CreateRelation(MabRixObjectID("C1"), "R1", MabRixObjectID("C2")));
  EXPECT_EQ(spRelation->GetRefCount(), 2u);
  const auto spSame = Own(Context.CreateRelation(MabRixObjectID("C1"), "R1", MabRixObjectID("C2")));
  EXPECT_EQ(spSame.Get(), spRelation.Get());
  const auto spOther = Own(Context.CreateRelation(MabRixObjectID("C1"), "", MabRixObjectID("C2")));
  EXPECT_NE(spOther.Get(), spRelation.Get());
  ASSERT_EQ(Context.GetRelations().size(), 2u);
  EXPECT_EQ(Context.GetRelations()[0]->GetFromObjectID(), MabRixObjectID("C1"));
  EXPECT_EQ(Context.GetRelations()[0]->GetRelationshipID(), "R1");
  EXPECT_EQ(Context.GetRelations()[0]->GetToObjectID(), MabRixObjectID("C2"));
}

TEST(MabRixTNRObjectContext, EntitiesKeptByTheCallerOutliveTheContext)
{
  MabERixMajorObject_var spMajor;
  {
    const auto spContext = Own(new MabRixTNRObjectContext());
    spMajor = Own(spContext->CreateMajorObject("Part", "P1", "A"));
    EXPECT_EQ(spMajor->GetRefCount(), 2u);
  }
  EXPECT_EQ(spMajor->GetRefCount(), 1u);
  EXPECT_EQ(spMajor->GetOwnerObject()->GetKeyName(), "P1");
}

TEST(MabRixCADObjectContext, OneObjectAndOneMinorObjectPerTypeAndName)
{
  MabRixCADObjectContext Context;
  const auto spObject = Own(Context.CreateObject("Part", "P1"));
  const auto spMinor = Own(Context.CreateMinorObject("Part", "P1"));
  EXPECT_EQ(Own(Context.CreateMinorObject("Part", "P1")).Get(), spMinor.Get());
  EXPECT_NE(Own(Context.CreateMinorObject("Part", "P2")).Get(), spMinor.Get());
  EXPECT_EQ(spMinor->GetObjectID(), MabRixObjectID("Part", "P1"));
  EXPECT_EQ(KelImplCast<MabERixMinorObject>(Context.GetMinorObject(MabRixObjectID("Part", "P1")).Get()), spMinor.Get());
  EXPECT_EQ(KelImplCast<MabERixObject>(Context.GetObject(MabRixObjectID("Part", "P1")).Get()), spObject.Get());
}

TEST(MabRixCADObjectContext, MajorObjectMadeBeforeAnyRevisionBecomesTheFirstNamedRevisions)
{
  MabRixCADObjectContext Context;
  const auto spPending = Own(Context.CreateMajorObject("Part", "P1"));
  EXPECT_EQ(spPending->GetKeyRevision(), "");
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1")).Get(), spPending.Get());
  EXPECT_EQ(KelImplCast<MabERixMajorObject>(Context.GetMajorObject(MabRixObjectID("Part", "P1")).Get()),
            spPending.Get());

  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "B"), S_OK);
  EXPECT_EQ(spPending->GetKeyRevision(), "B");
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1", "B")).Get(), spPending.Get());
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1")).Get(), spPending.Get());
  EXPECT_EQ(Context.GetMajorObjects().size(), 1u);
}

TEST(MabRixCADObjectContext, TwoStringCreationGivesTheMajorObjectOfTheCurrentRevision)
{
  MabRixCADObjectContext Context;
  const auto spA = Own(Context.CreateMajorObject("Part", "P1", "A"));
  EXPECT_TRUE(!Context.GetMajorObject(MabRixObjectID("Part", "P1")));  // no current revision, nothing pending
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "A"), S_OK);
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1")).Get(), spA.Get());
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "B"), S_OK);
  EXPECT_TRUE(!Context.GetMajorObject(MabRixObjectID("Part", "P1")));  // B not made yet
  const auto spB = Own(Context.CreateMajorObject("Part", "P1"));
  EXPECT_EQ(spB->GetKeyRevision(), "B");
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1", "B")).Get(), spB.Get());
  EXPECT_EQ(KelImplCast<MabERixMajorObject>(Context.GetMajorObject(MabRixObjectID("Part", "P1")).Get()), spB.Get());
}

TEST(MabRixCADObjectContext, PendingMajorObjectStaysRevisionLessWhenTheRevisionHasOneAlready)
{
  MabRixCADObjectContext Context;
  const auto spPending = Own(Context.CreateMajorObject("Part", "P1"));
  const auto spA = Own(Context.CreateMajorObject("Part", "P1", "A"));
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "A"), S_OK);
  EXPECT_EQ(spPending->GetKeyRevision(), "");
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1")).Get(), spA.Get());
  ASSERT_EQ(Context.GetMajorObjects().size(), 2u);
  EXPECT_EQ(Context.GetMajorObjects()[0].Get(), spPending.Get());
}

TEST(MabRixCADObjectContext, EveryMajorObjectGivesItsObjectsCurrentRevision)
{
  MabRixCADObjectContext Context;
  const auto spA = Own(Context.CreateMajorObject("Part", "P1", "A"));
  const auto spC = Own(Context.CreateMajorObject("Part", "P1", "C"));
  KelUnicodeString Revision = "untouched";
  EXPECT_TRUE(FAILED(spA->GetCurrentMajorRevision(Revision)));
  EXPECT_EQ(Revision, "untouched");
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "B"), S_OK);
  EXPECT_EQ(spA->GetCurrentMajorRevision(Revision), S_OK);
  EXPECT_EQ(Revision, "B");
  EXPECT_EQ(spC->GetCurrentMajorRevision(Revision), S_OK);
  EXPECT_EQ(Revision, "B");
  // The context's current revision is not a property of the object.
  EXPECT_TRUE(Context.GetObjects()[0]->GetSetProperties().empty());
}

TEST(MabRixCADObjectContext, EmptyRevisionCannotBeMadeCurrent)
{
  MabRixCADObjectContext Context;
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", ""), E_FAIL);
  EXPECT_TRUE(Context.GetObjects().empty());
  const auto spPending = Own(Context.CreateMajorObject("Part", "P1"));
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", ""), E_FAIL);
  EXPECT_EQ(Own(Context.CreateMajorObject("Part", "P1")).Get(), spPending.Get());
}

TEST(MabRixCADObjectContext, SetMajorRevisionMakesTheObject)
{
  MabRixCADObjectContext Context;
  EXPECT_EQ(Context.SetMajorRevision("Part", "P1", "A"), S_OK);
  ASSERT_EQ(Context.GetObjects().size(), 1u);
  KelUnicodeString Revision;
  EXPECT_EQ(Context.GetObjects()[0]->GetContextCurrentRevision(Revision), S_OK);
  EXPECT_EQ(Revision, "A");
}

TEST(MabRixObjectContext, ContentIsEnumeratedInCreationOrderAndReleasedWithTheContext)
{
  const auto spContext = Own(new MabRixCADObjectContext());
  Own(spContext->CreateMinorObject("Part", "P2"));
  Own(spContext->CreateMajorObject("Part", "P2", "B"));
  Own(spContext->CreateMajorObject("Asm", "A1", "A"));
  Own(spContext->CreateObject("Part", "P3"));
  ASSERT_EQ(spContext->GetObjects().size(), 3u);
  EXPECT_EQ(spContext->GetObjects()[0]->GetKeyName(), "P2");
  EXPECT_EQ(spContext->GetObjects()[1]->GetKeyName(), "A1");
  EXPECT_EQ(spContext->GetObjects()[2]->GetKeyName(), "P3");
  ASSERT_EQ(spContext->GetMajorObjects().size(), 2u);
  EXPECT_EQ(spContext->GetMajorObjects()[0]->GetKeyName(), "P2");
  EXPECT_EQ(spContext->GetObjects()[2]->GetRefCount(), 1u);  // the context's only
  EXPECT_EQ(spContext->GetObjects()[0]->GetRefCount(), 2u);  // the context's and its major object's
  EXPECT_EQ(spContext->GetMinorObjects()[0]->GetRefCount(), 1u);
  EXPECT_STREQ(spContext->IsA(), "MabRixCADObjectContext");
  EXPECT_TRUE(spContext->IsAKindOf("MabRixObjectContext"));
}
