// Children of a record (the text and attribute elements of a cadobject) are
// read by handlers that their parent reuses once they are done, when no one
// else holds them. No caller may see the difference: a handler or a value
// that someone kept is left as it was.
#include <gtest/gtest.h>

#include "MabRixAttributeValue.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixSAXHandlerObjectAttribute.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"

namespace
{
MabRixSAXHandlerBase& Impl(const MabIRixSAXHandler_var& iHandler)
{
  return *KelImplCast<MabRixSAXHandlerBase>(iHandler.Get());
}

// One text element sent as the parser would: its start to the record
// handler, its text and its end to the child that the start made.
void ReadText(MabRixSAXHandlerBase& ioRecord, const char* iName, const char* iText)
{
  ASSERT_EQ(ioRecord.StartElement(iName, MabRixTestAttributeList::Make()), S_OK);
  const MabIRixSAXHandler_var spChild = ioRecord.GetChildHandler();
  ASSERT_TRUE(!!spChild);
  EXPECT_EQ(spChild->Characters(iText), S_OK);
  EXPECT_EQ(spChild->EndElement(iName), S_OK);
}

// One attribute element with its name and string value.
void ReadAttribute(MabRixSAXHandlerBase& ioRecord, const char* iName, const char* iValue)
{
  const KelISAXAttributeList_var spNone = MabRixTestAttributeList::Make();
  ASSERT_EQ(ioRecord.StartElement("attribute", spNone), S_OK);
  const MabIRixSAXHandler_var spAttribute = ioRecord.GetChildHandler();
  ASSERT_TRUE(!!spAttribute);
  // The name is read by the attribute handler itself, the value by a child.
  EXPECT_EQ(spAttribute->StartElement("name", spNone), S_OK);
  EXPECT_EQ(spAttribute->Characters(iName), S_OK);
  EXPECT_EQ(spAttribute->EndElement("name"), S_OK);
  ReadText(Impl(spAttribute), "value", iValue);
  EXPECT_EQ(spAttribute->EndElement("attribute"), S_OK);
}

const MabRixObjectAttributeValue* Record(const MabRixTestParent& iParent, std::size_t iPosition)
{
  EXPECT_GT(iParent.Values().size(), iPosition);
  return iParent.Values().size() > iPosition ? MabRixValueAs<MabRixObjectAttributeValue>(iParent.Values()[iPosition])
                                             : nullptr;
}
}  // namespace

TEST(MabRixRecordChildReuse, AStringChildHeldAfterItsElementClosedIsNotReused)
{
  MabRixTestReporter Reporter;
  MabRixStartedHandler<MabRixSAXHandlerObjectAttribute> Handler;
  ReadText(*Handler._spHandler.Get(), "Name", "N");
  const MabIRixSAXHandler_var spHeld = Handler->GetChildHandler();
  ReadText(*Handler._spHandler.Get(), "Type", "T");

  EXPECT_NE(Handler->GetChildHandler().Get(), spHeld.Get());
  EXPECT_EQ(Impl(spHeld).GetElementName(), "Name");
  EXPECT_EQ(Impl(spHeld).GetCharacters(), "N");
  EXPECT_EQ(Impl(spHeld).GetDepth(), -1);
  EXPECT_EQ(Impl(Handler->GetChildHandler()).GetCharacters(), "T");
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixRecordChildReuse, AnAttributeChildHeldAfterItsElementClosedIsNotReused)
{
  MabRixTestReporter Reporter;
  MabRixStartedHandler<MabRixSAXHandlerObjectAttribute> Handler;
  ReadAttribute(*Handler._spHandler.Get(), "k1", "v1");
  const MabIRixSAXHandler_var spHeld = Handler->GetChildHandler();
  const MabIRixSAXHandler_var spHeldValueReader = Impl(spHeld).GetChildHandler();
  ReadAttribute(*Handler._spHandler.Get(), "k2", "v2");
  EXPECT_EQ(Handler->EndElement("list"), S_OK);

  EXPECT_NE(Handler->GetChildHandler().Get(), spHeld.Get());
  EXPECT_EQ(Impl(spHeld).GetElementName(), "attribute");
  EXPECT_EQ(Impl(spHeld).GetChildHandler().Get(), spHeldValueReader.Get());
  EXPECT_EQ(Impl(spHeldValueReader).GetCharacters(), "v1");
  const MabRixObjectAttributeValue* pRecord = Record(Handler._Parent, 0);
  ASSERT_NE(pRecord, nullptr);
  EXPECT_EQ(pRecord->_Attributes.Size(), 2);
  EXPECT_EQ(pRecord->_Attributes["k1"], "v1");
  EXPECT_EQ(pRecord->_Attributes["k2"], "v2");
  EXPECT_TRUE(Reporter.Reports().empty());
}

// A record handler read again starts from nothing; the value its parent
// kept from the record before stays as it was.
TEST(MabRixRecordChildReuse, ARenewedRecordHandlerReadsTheNextRecordAfreshAndLeavesTheKeptValueAlone)
{
  MabRixTestReporter Reporter;
  MabRixTestParent Parent;
  const KelISAXAttributeList_var spNone = MabRixTestAttributeList::Make();
  MabIRixSAXHandler_var spRecord;
  for (int i = 0; i < 2; ++i)
  {
    Parent.Root().RenewChild<MabRixSAXHandlerObjectAttribute>(spRecord);
    ASSERT_TRUE(!!spRecord);
    ASSERT_EQ(spRecord->StartHandlingEvents("cadobject", spNone), S_OK);
    if (i == 0)
    {
      ReadText(Impl(spRecord), "Name", "N1");
      ReadText(Impl(spRecord), "preview", "p1");
      ReadAttribute(Impl(spRecord), "k", "v1");
    }
    else
    {
      ReadText(Impl(spRecord), "Type", "T2");
      ReadAttribute(Impl(spRecord), "k", "v2");
    }
    ASSERT_EQ(spRecord->EndElement("cadobject"), S_OK);
  }

  const MabRixObjectAttributeValue* pFirst = Record(Parent, 0);
  const MabRixObjectAttributeValue* pSecond = Record(Parent, 1);
  ASSERT_NE(pFirst, nullptr);
  ASSERT_NE(pSecond, nullptr);
  EXPECT_NE(pFirst, pSecond);
  EXPECT_EQ(pFirst->_ElementValues.Size(), 2);
  EXPECT_EQ(pFirst->_ElementValues["Name"], "N1");
  EXPECT_EQ(pFirst->_PreviewPath, MabRixPath(KelUnicodeString("p1")));
  EXPECT_EQ(pFirst->_Attributes["k"], "v1");
  EXPECT_EQ(pSecond->_ElementValues.Size(), 1);
  EXPECT_EQ(pSecond->_ElementValues["Type"], "T2");
  EXPECT_EQ(pSecond->_PreviewPath, MabRixPath());
  EXPECT_EQ(pSecond->_Attributes.Size(), 1);
  EXPECT_EQ(pSecond->_Attributes["k"], "v2");
  EXPECT_TRUE(Reporter.Reports().empty());
}

// The parent keeps every string value it gets: each element gets a value of
// its own, which only the parent holds.
TEST(MabRixRecordChildReuse, AStringValueKeptByTheParentIsNotReused)
{
  MabRixTestReporter Reporter;
  MabRixTestParent Parent;
  const KelISAXAttributeList_var spNone = MabRixTestAttributeList::Make();
  MabIRixSAXHandler_var spChild;
  for (const char* Text : {"one", "two"})
  {
    Parent.Root().RenewChild<MabRixSAXHandlerString>(spChild);
    ASSERT_TRUE(!!spChild);
    ASSERT_EQ(spChild->StartHandlingEvents("v", spNone), S_OK);
    EXPECT_EQ(spChild->Characters(Text), S_OK);
    EXPECT_EQ(spChild->EndElement("v"), S_OK);
  }

  ASSERT_EQ(Parent.Values().size(), 2u);
  EXPECT_NE(Parent.Values()[0].Get(), Parent.Values()[1].Get());
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Parent.Values()[0])->_Value, "one");
  EXPECT_EQ(MabRixValueAs<MabRixStringValue>(Parent.Values()[1])->_Value, "two");
  EXPECT_EQ(Parent.Values()[0]->GetRefCount(), 1u);
  EXPECT_EQ(Parent.Values()[1]->GetRefCount(), 1u);
  EXPECT_TRUE(Reporter.Reports().empty());
}
