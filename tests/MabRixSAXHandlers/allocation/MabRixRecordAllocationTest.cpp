// What reading the children of a record allocates, and what a failed
// allocation in the middle of a record does.
#include <gtest/gtest.h>

#include "MabRixObjectAttributeValue.h"
#include "MabRixSAXHandlerObjectAttribute.h"
#include "MabRixTestAllocations.h"
#include "MabRixTestDirect.h"

namespace
{
MabRixSAXHandlerBase& Impl(const MabIRixSAXHandler_var& iHandler)
{
  return *KelImplCast<MabRixSAXHandlerBase>(iHandler.Get());
}

// Takes each record's value and lets it go, as the object list does once it
// has copied what it needs.
class RecordConsumer : public MabRixSAXHandlerBase
{
public:
  explicit RecordConsumer(KelISAXParser_var& iParser) : MabRixSAXHandlerBase(iParser) {}
  HRESULT Value(const MabIRixValue_var& iValue) override
  {
    const MabRixObjectAttributeValue* pRecord = MabRixValueAs<MabRixObjectAttributeValue>(iValue);
    _ElementCount = pRecord ? pRecord->_ElementValues.Size() : -1;
    _AttributeCount = pRecord ? pRecord->_Attributes.Size() : -1;
    return S_OK;
  }
  int _ElementCount = 0;
  int _AttributeCount = 0;
};

struct Reading
{
  Reading()
      : _spParser(KelISAXParser_var::Adopt(new KelExpatParser())),
        _spConsumer(KelVar<RecordConsumer>::Adopt(new RecordConsumer(_spParser))),
        _spNone(MabRixTestAttributeList::Make())
  {
  }
  ~Reading() { _spParser->SetDocumentHandler(nullptr); }

  // Sends the events of one text element, as the parser would.
  void Text(const char* iName, const char* iText)
  {
    ASSERT_EQ(Record().StartElement(iName, _spNone), S_OK);
    MabIRixSAXHandler* pChild = Record().GetChildHandler().Get();
    ASSERT_NE(pChild, nullptr);
    EXPECT_EQ(pChild->Characters(iText), S_OK);
    EXPECT_EQ(pChild->EndElement(iName), S_OK);
  }
  void Attribute(const char* iName, const char* iValue)
  {
    ASSERT_EQ(Record().StartElement("attribute", _spNone), S_OK);
    MabRixSAXHandlerBase& Handler = Impl(Record().GetChildHandler());
    EXPECT_EQ(Handler.StartElement("name", _spNone), S_OK);
    EXPECT_EQ(Handler.Characters(iName), S_OK);
    EXPECT_EQ(Handler.EndElement("name"), S_OK);
    ASSERT_EQ(Handler.StartElement("value", _spNone), S_OK);
    MabIRixSAXHandler* pValueReader = Handler.GetChildHandler().Get();
    ASSERT_NE(pValueReader, nullptr);
    EXPECT_EQ(pValueReader->Characters(iValue), S_OK);
    EXPECT_EQ(pValueReader->EndElement("value"), S_OK);
    EXPECT_EQ(Handler.EndElement("attribute"), S_OK);
  }
  void Begin()
  {
    _spConsumer->RenewChild<MabRixSAXHandlerObjectAttribute>(_spRecord);
    ASSERT_TRUE(!!_spRecord);
    ASSERT_EQ(_spRecord->StartHandlingEvents("cadobject", _spNone), S_OK);
  }
  void End() { EXPECT_EQ(_spRecord->EndElement("cadobject"), S_OK); }
  void WholeRecord()
  {
    Begin();
    Text("Name", "PRT-1");
    Text("Type", "Component");
    Text("Rev", "A");
    Attribute("renamedfrom", "OLD-1");
    Text("Ver", "6");
    End();
  }
  MabRixSAXHandlerBase& Record() { return Impl(_spRecord); }

  KelISAXParser_var _spParser;
  KelVar<RecordConsumer> _spConsumer;
  KelISAXAttributeList_var _spNone;
  MabIRixSAXHandler_var _spRecord;
};
}  // namespace

TEST(MabRixRecordAllocation, AfterTheFirstRecordReadingARecordAllocatesNothing)
{
  MabRixTestReporter Reporter;
  Reading Read;
  Read.WholeRecord();
  for (int i = 0; i < 3; ++i)
  {
    const std::size_t Before = MabRixTestAllocations::Count();
    Read.WholeRecord();
    EXPECT_EQ(MabRixTestAllocations::Count() - Before, 0u) << "record " << i + 2;
  }
  EXPECT_EQ(Read._spConsumer->_ElementCount, 4);
  EXPECT_EQ(Read._spConsumer->_AttributeCount, 1);
  EXPECT_TRUE(Reporter.Reports().empty());
}

// A child handler that cannot be made is no failure: its element is skipped
// and the rest of the record is read.
TEST(MabRixRecordAllocation, AChildThatCannotBeMadeInTheMiddleOfARecordIsSkipped)
{
  MabRixTestReporter Reporter;
  Reading Read;
  Read.Begin();
  Read.Text("Name", "PRT-1");
  // Held, the last child cannot serve again: the next one must be made.
  const MabIRixSAXHandler_var spHeld = Read.Record().GetChildHandler();
  MabRixTestAllocations::FailOne();
  EXPECT_EQ(Read.Record().StartElement("Type", Read._spNone), S_OK);
  MabRixTestAllocations::Disarm();
  EXPECT_TRUE(!Read.Record().GetChildHandler());
  // Its events reach the record handler itself, which ignores them.
  EXPECT_EQ(Read.Record().Characters("Component"), S_OK);
  EXPECT_EQ(Read.Record().EndElement("Type"), S_OK);
  Read.Text("Ver", "6");
  Read.End();

  EXPECT_EQ(Read._spConsumer->_ElementCount, 2);  // Name and Ver
  EXPECT_EQ(Impl(spHeld).GetCharacters(), "PRT-1");
  EXPECT_TRUE(Reporter.Reports().empty());
}
