// What a context keeps, and for how long: its content outlives the parser and
// the handlers that filled it; what a caller copies out or holds by counted
// reference outlives the context; two contexts filled at once on two threads
// share nothing.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "KelError.h"
#include "MabRixObjectModelTestSupport.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestSupport.h"

namespace
{
// An object list of iCount objects; object i has the CAD id "C<i>", the
// name "part<i / 2>.prt" (two versions per name) and a long description.
std::string ObjectList(int iCount, const std::string& iPrefix = "")
{
  std::string Xml = "<cadobjectlist>";
  for (int i = 0; i < iCount; ++i)
  {
    const std::string N = std::to_string(i);
    const std::string Name = iPrefix + "part" + std::to_string(i / 2) + ".prt";
    Xml += "<cadobject busid='B" + N + "' bustype='ZQ_PartVersion' cadid='" + iPrefix + "C" + N +
           "' zqtype='ZQ_Part' zqversion='A." + std::to_string(i % 2 + 1) + "' name='" + Name + "' oid='O" + N +
           "' type='component' uuid='U" + N + "' islocked='true' locker='alice' dirname='/work/" + iPrefix +
           "' filename='" + Name + "' Description='a description long enough to leave the string buffer " + N +
           "'><State>In Work</State><preview>/thumbs/" + N + ".png</preview></cadobject>";
  }
  return Xml + "</cadobjectlist>";
}

// Reads iXml into ipContext; the parser and every handler are gone when
// this returns.
HRESULT ReadInto(MabRixTNRObjectContext* ipContext, const std::string& iXml)
{
  const MabRixTestReading Reading = MabRixRead(iXml, MabRixMake<MabRixSAXHandlerObjectList>(ipContext), "", 64);
  return Reading._Result;
}

// Every entity of a context with its keys and properties, as texts.
std::vector<std::string> Describe(const MabRixObjectContext& iContext)
{
  std::vector<std::string> Lines;
  for (const MabERixObject_var& spObject : iContext.GetObjects())
    for (const std::string& Text : MabRixPropertyTexts(spObject.Get()))
      Lines.push_back("object " + spObject->GetKeyType().ToUtf8() + "|" + spObject->GetKeyName().ToUtf8() + " " + Text);
  for (const MabERixMajorObject_var& spMajor : iContext.GetMajorObjects())
    for (const std::string& Text : MabRixPropertyTexts(spMajor.Get()))
      Lines.push_back("major " + spMajor->GetKeyName().ToUtf8() + "|" + spMajor->GetKeyRevision().ToUtf8() + " " +
                      Text);
  for (const MabERixMinorObject_var& spMinor : iContext.GetMinorObjects())
  {
    const std::string Key = "minor " + spMinor->GetObjectID().GetID().ToUtf8() + "|" + spMinor->GetKeyName().ToUtf8() +
                            "|" + spMinor->GetKeyVersion().ToUtf8() + " ";
    for (const std::string& Text : MabRixPropertyTexts(spMinor.Get()))
      Lines.push_back(Key + Text);
    for (const std::string& Text : MabRixDicoTexts(spMinor->_ExtraAttributes))
      Lines.push_back(Key + "extra " + Text);
  }
  return Lines;
}
}  // namespace

TEST(MabRixObjectContextLifetime, ContentOutlivesTheParserAndTheHandlers)
{
  KelError::KelCleanLastError();
  const auto spContext = KelVar<MabRixTNRObjectContext>::Adopt(new MabRixTNRObjectContext());
  ASSERT_EQ(ReadInto(spContext.Get(), ObjectList(40)), S_OK);

  ASSERT_EQ(spContext->GetMinorObjects().size(), 40u);
  ASSERT_EQ(spContext->GetObjects().size(), 20u);
  const MabERixMinorObject& Last = *spContext->GetMinorObjects()[39];
  EXPECT_EQ(Last.GetObjectID().GetID(), "C39");
  EXPECT_EQ(Last.GetKeyName(), "part19.prt");
  EXPECT_EQ(Last.GetKeyVersion(), "2");
  EXPECT_EQ(MabRixPropertyText(&Last, "MinorUUID"), "U39");
  EXPECT_EQ(MabRixPropertyText(&Last, "Thumbnail"), "/thumbs/39.png");
  EXPECT_EQ(MabRixPropertyText(&Last, "MinorDocumentID"), "(component,part19.prt,/work/part19.prt)");
  EXPECT_EQ(Last._ExtraAttributes["Description"], "a description long enough to leave the string buffer 39");
  EXPECT_EQ(MabRixPropertyText(spContext->GetMajorObjects()[19].Get(), "State"), "In Work");
  // The same content read again from the same list into a new context.
  const auto spAgain = KelVar<MabRixTNRObjectContext>::Adopt(new MabRixTNRObjectContext());
  ASSERT_EQ(ReadInto(spAgain.Get(), ObjectList(40)), S_OK);
  EXPECT_EQ(Describe(*spAgain), Describe(*spContext));
  KelError::KelCleanLastError();
}

TEST(MabRixObjectContextLifetime, ValuesCopiedOutAndEntitiesHeldOutliveTheContext)
{
  KelError::KelCleanLastError();
  KelUnicodeString Name;
  KelUnicodeString UUID;
  MabRixDocumentID DocumentID;
  KelUnicodeString Description;
  KelUnicodeStringKelUnicodeStringDico CopiedAttributes;
  KelUnicodeStringKelUnicodeStringDico MovedValues;
  std::vector<std::string> Before;
  MabERixMinorObject_var spMinor;
  MabERixMajorObject_var spMajor;
  {
    MabRixTNRObjectContext Context;  // on the stack: gone at the end of the block
    ASSERT_EQ(ReadInto(&Context, ObjectList(10)), S_OK);
    const MabERixMinorObject& Minor = *Context.GetMinorObjects()[7];
    Name = Minor.GetKeyName();
    ASSERT_EQ(Minor.GetMinorUUID(UUID), S_OK);
    ASSERT_EQ(Minor.GetDocumentID(DocumentID), S_OK);
    Description = Minor._ExtraAttributes["Description"];
    // Whole dictionaries, copied or moved out of the context's memory.
    CopiedAttributes = Minor._ExtraAttributes;
    MovedValues = std::move(Context.GetMinorObjects()[8]->_ElementValues);
    spMinor = Context.GetMinorObjects()[3];
    spMajor = Context.GetMajorObjects()[2];
    Before = MabRixPropertyTexts(spMinor.Get());
    const std::vector<std::string> MajorBefore = MabRixPropertyTexts(spMajor.Get());
    EXPECT_EQ(MajorBefore, MabRixPropertyTexts(spMajor.Get()));
  }
  EXPECT_EQ(Name, "part3.prt");
  EXPECT_EQ(UUID, "U7");
  EXPECT_EQ(DocumentID, MabRixDocumentID::Create("component", "part3.prt", MabRixPath("/work/part3.prt")));
  EXPECT_EQ(Description, "a description long enough to leave the string buffer 7");
  EXPECT_EQ(CopiedAttributes["Description"], "a description long enough to leave the string buffer 7");
  EXPECT_EQ(MovedValues["preview"], "/thumbs/8.png");
  EXPECT_EQ(MovedValues["State"], "In Work");
  CopiedAttributes.Insert("added after the context", "still growing");
  EXPECT_EQ(CopiedAttributes["added after the context"], "still growing");

  // The entities held keep their keys, properties and dictionaries, and the
  // major object its object.
  EXPECT_EQ(spMinor->GetRefCount(), 1u);
  EXPECT_EQ(spMinor->GetObjectID().GetID(), "C3");
  EXPECT_EQ(spMinor->GetKeyType(), "ZQ_Part");
  EXPECT_EQ(spMinor->GetKeyName(), "part1.prt");
  EXPECT_EQ(spMinor->GetKeyRevision(), "A");
  EXPECT_EQ(spMinor->GetKeyVersion(), "2");
  EXPECT_EQ(MabRixPropertyTexts(spMinor.Get()), Before);
  EXPECT_EQ(spMinor->_ExtraAttributes["Description"], "a description long enough to leave the string buffer 3");
  EXPECT_EQ(spMajor->GetKeyName(), "part2.prt");
  EXPECT_EQ(spMajor->GetOwnerObject()->GetKeyName(), "part2.prt");
  EXPECT_EQ(spMajor->GetOwnerObject()->GetRefCount(), 1u);  // the major object's only
  EXPECT_EQ(MabRixPropertyText(spMajor.Get(), "LockOwner"), "alice");
  // Still writable.
  EXPECT_EQ(spMinor->_SetMinorUUID("a new value, longer than before"), S_OK);
  EXPECT_EQ(MabRixPropertyText(spMinor.Get(), "MinorUUID"), "a new value, longer than before");
  KelError::KelCleanLastError();
}

TEST(MabRixObjectContextLifetime, TwoContextsFilledOnTwoThreadsGetWhatOneThreadGets)
{
  const std::string Lists[2] = {ObjectList(300, "x"), ObjectList(300, "y")};
  std::vector<std::string> Expected[2];
  for (int i = 0; i < 2; ++i)
  {
    MabRixTNRObjectContext Context;
    ASSERT_EQ(ReadInto(&Context, Lists[i]), S_OK);
    Expected[i] = Describe(Context);
  }
  KelError::KelCleanLastError();

  std::vector<std::string> Got[2];
  HRESULT Results[2] = {E_FAIL, E_FAIL};
  std::vector<std::thread> Threads;
  for (int i = 0; i < 2; ++i)
    Threads.emplace_back([&, i] {
      // Each thread makes, fills, reads and destroys its own context.
      for (int Round = 0; Round < 5; ++Round)
      {
        const auto spContext = KelVar<MabRixTNRObjectContext>::Adopt(new MabRixTNRObjectContext());
        Results[i] = ReadInto(spContext.Get(), Lists[i]);
        Got[i] = Describe(*spContext);
      }
      KelError::KelCleanLastError();
    });
  for (std::thread& Thread : Threads)
    Thread.join();
  for (int i = 0; i < 2; ++i)
  {
    EXPECT_EQ(Results[i], S_OK);
    EXPECT_EQ(Got[i].size(), Expected[i].size());
    EXPECT_TRUE(Got[i] == Expected[i]) << "thread " << i;
  }
}
