#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MabRixBooleanValue.h"
#include "MabRixSAXHandlerSavedQueryResult.h"
#include "MabRixSavedQueryRecord.h"
#include "MabRixSavedQueryResultValue.h"
#include "MabRixStringListValue.h"
#include "MabRixStringValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
const char* const CheckFile = "MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerSavedQueryResult";

// A record that logs every call in order and fails the one operation it is
// told to fail (storing nothing for it).
class ScriptedRecord : public MabRixSavedQueryRecord
{
public:
  explicit ScriptedRecord(std::string iFailing = "", HRESULT iCode = E_FAIL)
      : _Failing(std::move(iFailing)), _Code(iCode)
  {
  }

  HRESULT SetName(const KelUnicodeString& i) override
  {
    return Call("SetName", i, [&] { return Base::SetName(i); });
  }
  HRESULT SetDescription(const KelUnicodeString& i) override
  {
    return Call("SetDescription", i, [&] { return Base::SetDescription(i); });
  }
  HRESULT SetCriteriaName(const KelUnicodeString& i) override
  {
    return Call("SetCriteriaName", i, [&] { return Base::SetCriteriaName(i); });
  }
  HRESULT SetCriteriaRevision(const KelUnicodeString& i) override
  {
    return Call("SetCriteriaRevision", i, [&] { return Base::SetCriteriaRevision(i); });
  }
  HRESULT SetCriteriaOwner(const KelUnicodeString& i) override
  {
    return Call("SetCriteriaOwner", i, [&] { return Base::SetCriteriaOwner(i); });
  }
  HRESULT SetCriteriaVaults(const KelUnicodeStringList& i) override
  {
    return Call("SetCriteriaVaults", Join(i), [&] { return Base::SetCriteriaVaults(i); });
  }
  HRESULT SetCriteriaTypes(const KelUnicodeStringList& i) override
  {
    return Call("SetCriteriaTypes", Join(i), [&] { return Base::SetCriteriaTypes(i); });
  }
  HRESULT AddBasicProperty(const KelUnicodeString& n, const KelUnicodeString& v) override
  {
    return Call("AddBasicProperty", Join({n, v}), [&] { return Base::AddBasicProperty(n, v); });
  }
  HRESULT AddProperty(const KelUnicodeString& n, const KelUnicodeString& v) override
  {
    return Call("AddProperty", Join({n, v}), [&] { return Base::AddProperty(n, v); });
  }

  std::vector<std::string> _Calls;      // "Operation(arguments)"
  KelError* _pErrorToRecord = nullptr;  // recorded as pending by the failing call

private:
  typedef MabRixSavedQueryRecord Base;

  static KelUnicodeString Join(const KelUnicodeStringList& iList)
  {
    KelUnicodeString Text;
    for (int i = 0; i < iList.Size(); ++i)
    {
      if (i > 0)
        Text += "|";
      Text += iList[i];
    }
    return Text;
  }

  template <class Store>
  HRESULT Call(const char* iOperation, const KelUnicodeString& iArguments, Store iStore)
  {
    _Calls.push_back(std::string(iOperation) + "(" + iArguments.ToUtf8() + ")");
    if (_Failing != iOperation)
      return iStore();
    if (_pErrorToRecord)
      (void)KelError::GetReturn(2, _pErrorToRecord, nullptr, "record", 1);
    return _Code;
  }

  std::string _Failing;
  HRESULT _Code;
};

MabRixHandlerFactory WithRecord(MabIRixSavedQueryRecord* ipRecord)
{
  return [=](MabRixSAXHandlerBase& iParent) {
    MabRixSAXHandlerSavedQueryResult* pHandler = new MabRixSAXHandlerSavedQueryResult(iParent);
    pHandler->GetSavedQueryResultValue()->_spQueryRecord = ipRecord;
    return MabIRixSAXHandler_var::Adopt(pHandler);
  };
}

MabRixTestReading ReadQuery(const std::string& iXml, ScriptedRecord* ipRecord)
{
  return MabRixRead(iXml, WithRecord(ipRecord));
}

MabRixTestReading ReadQuery(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerSavedQueryResult>());
}

const MabRixSavedQueryResultValue* ResultOf(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  return iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixSavedQueryResultValue>(iReading.Values()[0]);
}

const MabRixSavedQueryRecord& RecordOf(const MabRixTestReading& iReading)
{
  static const MabRixSavedQueryRecord None;
  const MabRixSavedQueryResultValue* pValue = ResultOf(iReading);
  const MabRixSavedQueryRecord* pRecord =
      pValue ? KelImplCast<MabRixSavedQueryRecord>(pValue->GetQueryRecord()) : nullptr;
  EXPECT_NE(pRecord, nullptr);
  return pRecord ? *pRecord : None;
}

MabRixSAXHandlerSavedQueryResult* HandlerOf(const MabRixTestReading& iReading)
{
  return KelImplCast<MabRixSAXHandlerSavedQueryResult>(iReading.Handler().Get());
}

MabIRixValue_var Text(const char* iText) { return MabRixTextValue(iText); }

typedef std::vector<std::string> Calls;
typedef MabRixSavedQueryRecord::Property Property;

// A response that calls each of the nine record operations once, in the
// order of the record's operations.
const char* const EveryOperation = R"(<savedquery>
  <name>Q</name>
  <description>D</description>
  <criteria>
    <name>CN</name>
    <revision>R</revision>
    <owner>O</owner>
    <vault>V1,V2</vault>
    <type>T1,T2</type>
  </criteria>
  <criteria><property name="b" type="basic">bv</property></criteria>
  <criteria><property name="p">pv</property></criteria>
</savedquery>)";

const Calls EveryCall = {
    "SetName(Q)",          "SetDescription(D)",        "SetCriteriaName(CN)",     "SetCriteriaRevision(R)",
    "SetCriteriaOwner(O)", "SetCriteriaVaults(V1|V2)", "SetCriteriaTypes(T1|T2)", "AddBasicProperty(b|bv)",
    "AddProperty(p|pv)"};
}  // namespace

TEST(MabRixSAXHandlerSavedQueryResult, RealisticResponseIsReadWhole)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadQuery(R"(<?xml version="1.0" encoding="UTF-8"?>
<savedquery>
  <name>Released brackets</name>
  <description>All released bracket parts of the bike program</description>
  <criteria>
    <name>*bracket*</name>
    <revision>latest</revision>
    <owner>jdoe</owner>
    <type>CAD Part,CAD Assembly</type>
    <vault>Production</vault>
    <property name="current" type="basic">Released</property>
    <property name="Material" type="basic">Steel</property>
  </criteria>
  <criteria>
    <property name="Weight">&lt; 2 kg</property>
    <property name="Supplier" type="attribute">Acme</property>
  </criteria>
</savedquery>)");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(Reporter.Reports().empty());
  const MabRixSavedQueryResultValue* pValue = ResultOf(Reading);
  ASSERT_NE(pValue, nullptr);
  EXPECT_EQ(pValue->_SavedQueryID,
            MabRixSavedQueryID("Released brackets", "All released bracket parts of the bike program"));
  const MabRixSavedQueryRecord& Record = RecordOf(Reading);
  EXPECT_EQ(Record._Name, KelUnicodeString("Released brackets"));
  EXPECT_EQ(Record._Description, KelUnicodeString("All released bracket parts of the bike program"));
  EXPECT_EQ(Record._CriteriaName, KelUnicodeString("*bracket*"));
  EXPECT_EQ(Record._CriteriaRevision, KelUnicodeString("latest"));
  EXPECT_EQ(Record._CriteriaOwner, KelUnicodeString("jdoe"));
  EXPECT_EQ(Record._CriteriaTypes, (KelUnicodeStringList{"CAD Part", "CAD Assembly"}));
  EXPECT_EQ(Record._CriteriaVaults, (KelUnicodeStringList{"Production"}));
  EXPECT_EQ(Record._BasicProperties, (std::vector<Property>{{"current", "Released"}, {"Material", "Steel"}}));
  EXPECT_EQ(Record._Properties, (std::vector<Property>{{"Weight", "< 2 kg"}, {"Supplier", "Acme"}}));
}

TEST(MabRixSAXHandlerSavedQueryResult, NameAndDescriptionOnlyFillTheIDAndAreSetOnceEach)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading =
      ReadQuery("<q><name>My query</name><description>What it finds</description></q>", spRecord.Get());
  EXPECT_EQ(Reading._Result, S_OK);
  ASSERT_NE(ResultOf(Reading), nullptr);
  EXPECT_EQ(ResultOf(Reading)->_SavedQueryID, MabRixSavedQueryID("My query", "What it finds"));
  EXPECT_EQ(spRecord->_Calls, (Calls{"SetName(My query)", "SetDescription(What it finds)"}));
  EXPECT_FALSE(spRecord->_CriteriaName.has_value());
}

TEST(MabRixSAXHandlerSavedQueryResult, NameInsideCriteriaGoesToTheCriteriaAndLeavesTheIDAlone)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading =
      ReadQuery("<q><name>Query</name><criteria><name>part*</name></criteria></q>", spRecord.Get());
  EXPECT_EQ(ResultOf(Reading)->_SavedQueryID, MabRixSavedQueryID("Query", ""));
  EXPECT_EQ(spRecord->_Calls, (Calls{"SetName(Query)", "SetCriteriaName(part*)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, DescriptionInsideCriteriaAndRevisionOutsideAreDropped)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = ReadQuery(
      "<q><revision>A</revision><owner>o</owner><property name='x'>1</property>"
      "<criteria><description>inner</description></criteria></q>",
      spRecord.Get());
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_TRUE(spRecord->_Calls.empty());
  EXPECT_EQ(ResultOf(Reading)->_SavedQueryID, MabRixSavedQueryID("", ""));
}

TEST(MabRixSAXHandlerSavedQueryResult, PropertyAfterABasicOneInTheSameCriteriaIsAlsoBasic)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = ReadQuery(
      "<q><criteria><property name='a' type='basic'>1</property><property name='b' type='other'>2</property>"
      "</criteria><criteria><property name='c' type='other'>3</property></criteria></q>",
      spRecord.Get());
  // The end of the first criteria clears the flag: "c" is not basic.
  EXPECT_EQ(spRecord->_Calls, (Calls{"AddBasicProperty(a|1)", "AddBasicProperty(b|2)", "AddProperty(c|3)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, PropertyWithoutTypeIsNotBasic)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  // The name is "basic": a stale read of it must not be taken as the type.
  const MabRixTestReading Reading =
      ReadQuery("<q><criteria><property name='basic'>1</property></criteria></q>", spRecord.Get());
  EXPECT_EQ(spRecord->_Calls, (Calls{"AddProperty(basic|1)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, PropertyWithoutTypeAfterABasicOneIsStillBasic)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = ReadQuery(
      "<q><criteria><property name='a' type='basic'>1</property><property name='b'>2</property></criteria></q>",
      spRecord.Get());
  EXPECT_EQ(spRecord->_Calls, (Calls{"AddBasicProperty(a|1)", "AddBasicProperty(b|2)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, TypeInCapitalsIsNotBasic)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading =
      ReadQuery("<q><criteria><property name='a' type='Basic'>1</property></criteria></q>", spRecord.Get());
  EXPECT_EQ(spRecord->_Calls, (Calls{"AddProperty(a|1)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, PropertyNameIsResetAtTheNextEndTheHandlerReceives)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  // The second property has no name attribute: it gets an empty name, not the first one's.
  const MabRixTestReading Reading = ReadQuery(
      "<q><criteria><property name='a'>1</property></criteria><criteria><property>2</property></criteria></q>",
      spRecord.Get());
  EXPECT_EQ(spRecord->_Calls, (Calls{"AddProperty(a|1)", "AddProperty(|2)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, TypeWithTwoNamesGivesATwoElementListAndVaultOutsideCriteriaIsDropped)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading =
      ReadQuery("<q><vault>Outside</vault><criteria><type>CAD Part,Drawing</type></criteria></q>", spRecord.Get());
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(spRecord->_Calls, (Calls{"SetCriteriaTypes(CAD Part|Drawing)"}));
  EXPECT_EQ(spRecord->_CriteriaTypes, (KelUnicodeStringList{"CAD Part", "Drawing"}));
  EXPECT_FALSE(spRecord->_CriteriaVaults.has_value());
}

TEST(MabRixSAXHandlerSavedQueryResult, ElementOfTheOwnNameNestedInsideDoesNotCloseItEarly)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = MabRixRead("<doc><q><q></q><name>after inner</name></q><name>outside</name></doc>",
                                               WithRecord(spRecord.Get()), "q");
  ASSERT_EQ(Reading.Values().size(), 1u);
  EXPECT_EQ(ResultOf(Reading)->_SavedQueryID, MabRixSavedQueryID("after inner", ""));
  EXPECT_EQ(spRecord->_Calls, (Calls{"SetName(after inner)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, FailingSetCriteriaOwnerReachesTheParserAsTheStringChildsEnd)
{
  KelError::KelCleanLastError();
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord("SetCriteriaOwner"));
  const MabRixTestReading Reading =
      ReadQuery("<q><criteria><owner>nobody</owner><revision>B</revision></criteria></q>", spRecord.Get());
  EXPECT_EQ(Reading._Result, E_FAIL);
  const std::vector<KelSAXCallbackFailure>& Failures = Reading._spParser->GetCallbackFailures();
  ASSERT_EQ(Failures.size(), 1u);
  EXPECT_EQ(Failures[0]._Result, E_FAIL);
  EXPECT_STREQ(Failures[0]._Event, "EndElement");
  EXPECT_EQ(Failures[0]._Element, "owner");
  // Reading went on with the next element.
  EXPECT_EQ(spRecord->_CriteriaRevision, KelUnicodeString("B"));
  const MabRixLastError Error = MabRixGetLastError();
  EXPECT_TRUE(Error._Present);
  EXPECT_EQ(Error._Key, "Unexpected");
  EXPECT_EQ(Error._Catalog, "MabRixIntegration");
  EXPECT_EQ(Error._File, CheckFile);
  KelError::KelCleanLastError();
}

// Each record operation fails in turn: the call that made it returns the
// error result (except SetName and SetDescription, whose results are not
// looked at), the failing call stores nothing after it, and every other
// call of the reading is still made.
TEST(MabRixSAXHandlerSavedQueryResult, EachRecordOperationFailingInTurn)
{
  const char* const Operations[] = {"SetName",          "SetDescription",    "SetCriteriaName",  "SetCriteriaRevision",
                                    "SetCriteriaOwner", "SetCriteriaVaults", "SetCriteriaTypes", "AddBasicProperty",
                                    "AddProperty"};
  const char* const Elements[] = {"name",  "description", "name",     "revision", "owner",
                                  "vault", "type",        "property", "property"};
  for (int i = 0; i < 9; ++i)
  {
    SCOPED_TRACE(Operations[i]);
    KelError::KelCleanLastError();
    KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord(Operations[i], E_UNEXPECTED));
    const MabRixTestReading Reading = ReadQuery(EveryOperation, spRecord.Get());
    EXPECT_EQ(spRecord->_Calls, EveryCall);
    const std::vector<KelSAXCallbackFailure>& Failures = Reading._spParser->GetCallbackFailures();
    const bool ResultLookedAt = i >= 2;
    if (ResultLookedAt)
    {
      EXPECT_EQ(Reading._Result, E_FAIL);
      ASSERT_EQ(Failures.size(), 1u);
      EXPECT_EQ(Failures[0]._Result, E_FAIL);
      EXPECT_STREQ(Failures[0]._Event, "EndElement");
      EXPECT_EQ(Failures[0]._Element, Elements[i]);
      const MabRixLastError Error = MabRixGetLastError();
      EXPECT_TRUE(Error._Present);
      EXPECT_EQ(Error._Key, "Unexpected");
      EXPECT_EQ(Error._File, CheckFile);
    }
    else
    {
      EXPECT_EQ(Reading._Result, S_OK);
      EXPECT_TRUE(Failures.empty());
      EXPECT_FALSE(MabRixGetLastError()._Present);
    }
    // The handler keeps the query's own name and description, even when
    // the record refused them.
    ASSERT_NE(ResultOf(Reading), nullptr);
    EXPECT_EQ(ResultOf(Reading)->_SavedQueryID, MabRixSavedQueryID("Q", "D"));
    const ScriptedRecord& Record = *spRecord;
    EXPECT_EQ(Record._Name.has_value(), i != 0);
    EXPECT_EQ(Record._Description.has_value(), i != 1);
    EXPECT_EQ(Record._CriteriaName.has_value(), i != 2);
    EXPECT_EQ(Record._CriteriaRevision.has_value(), i != 3);
    EXPECT_EQ(Record._CriteriaOwner.has_value(), i != 4);
    EXPECT_EQ(Record._CriteriaVaults.has_value(), i != 5);
    EXPECT_EQ(Record._CriteriaTypes.has_value(), i != 6);
    EXPECT_EQ(Record._BasicProperties.size(), i != 7 ? 1u : 0u);
    EXPECT_EQ(Record._Properties.size(), i != 8 ? 1u : 0u);
  }
  KelError::KelCleanLastError();
}

TEST(MabRixSAXHandlerSavedQueryResult, PendingErrorOfAFailingSetterIsPassedOn)
{
  KelError::KelCleanLastError();
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord("SetCriteriaName"));
  MabRixError* pOwn = new MabRixError("NameRefused", "MabRixQuery");
  spRecord->_pErrorToRecord = pOwn;
  const MabRixTestReading Reading = ReadQuery("<q><criteria><name>x</name></criteria></q>", spRecord.Get());
  EXPECT_EQ(Reading._Result, E_FAIL);
  const MabRixLastError Error = MabRixGetLastError();
  EXPECT_EQ(Error._Key, "NameRefused");
  pOwn->Release();
  KelError::KelCleanLastError();
}

TEST(MabRixSAXHandlerSavedQueryResult, NullValueRaisesTheUnexpectedError)
{
  KelError::KelCleanLastError();
  const MabRixTestReading Reading = ReadQuery("<q/>");
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var()), E_FAIL);
  const MabRixLastError Error = MabRixGetLastError();
  EXPECT_TRUE(Error._Present);
  EXPECT_EQ(Error._Key, "Unexpected");
  EXPECT_EQ(Error._Catalog, "MabRixIntegration");
  EXPECT_EQ(Error._File, CheckFile);
  KelError::KelCleanLastError();
}

TEST(MabRixSAXHandlerSavedQueryResult, MissingQueryRecordRaisesTheUnexpectedErrorAndStoresNothing)
{
  KelError::KelCleanLastError();
  const MabRixTestReading Reading = ReadQuery("<q><name>before</name></q>");
  MabRixSAXHandlerSavedQueryResult* pHandler = HandlerOf(Reading);
  pHandler->GetSavedQueryResultValue()->_spQueryRecord = nullptr;
  // Current element is still "name", outside criteria.
  EXPECT_EQ(pHandler->Value(Text("after")), E_FAIL);
  EXPECT_EQ(MabRixGetLastError()._Key, "Unexpected");
  EXPECT_EQ(pHandler->GetSavedQueryResultValue()->_SavedQueryID, MabRixSavedQueryID("before", ""));
  KelError::KelCleanLastError();
}

TEST(MabRixSAXHandlerSavedQueryResult, ValueOfAnUnknownClassIsIgnored)
{
  KelError::KelCleanLastError();
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = ReadQuery("<q><criteria><name>x</name></criteria></q>", spRecord.Get());
  spRecord->_Calls.clear();
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var::Adopt(new MabRixBooleanValue())), S_OK);
  EXPECT_TRUE(spRecord->_Calls.empty());
  EXPECT_FALSE(MabRixGetLastError()._Present);
}

TEST(MabRixSAXHandlerSavedQueryResult, ListValueOutsideCriteriaIsIgnored)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  const MabRixTestReading Reading = ReadQuery("<q><type>A,B</type></q>", spRecord.Get());
  MabRixStringListValue* pList = new MabRixStringListValue();
  pList->_Value = KelUnicodeStringList{"A"};
  EXPECT_EQ(HandlerOf(Reading)->Value(MabIRixValue_var::Adopt(pList)), S_OK);
  EXPECT_TRUE(spRecord->_Calls.empty());
}

TEST(MabRixSAXHandlerSavedQueryResult, CriteriaFlagFollowsCriteriaWithoutNesting)
{
  KelVar<ScriptedRecord> spRecord = KelVar<ScriptedRecord>::Adopt(new ScriptedRecord());
  // The inner end clears the flag although the outer criteria is still open.
  const MabRixTestReading Reading =
      ReadQuery("<q><criteria><criteria></criteria><name>n</name></criteria></q>", spRecord.Get());
  EXPECT_EQ(spRecord->_Calls, (Calls{"SetName(n)"}));
}

TEST(MabRixSAXHandlerSavedQueryResult, RecordFieldsStayUnsetUntilSet)
{
  const MabRixTestReading Reading = ReadQuery("<q><criteria><owner></owner></criteria></q>");
  const MabRixSavedQueryRecord& Record = RecordOf(Reading);
  EXPECT_FALSE(Record._Name.has_value());
  EXPECT_FALSE(Record._Description.has_value());
  EXPECT_FALSE(Record._CriteriaName.has_value());
  EXPECT_FALSE(Record._CriteriaRevision.has_value());
  ASSERT_TRUE(Record._CriteriaOwner.has_value());
  EXPECT_EQ(*Record._CriteriaOwner, "");
  EXPECT_FALSE(Record._CriteriaVaults.has_value());
  EXPECT_FALSE(Record._CriteriaTypes.has_value());
  EXPECT_TRUE(Record._BasicProperties.empty());
  EXPECT_TRUE(Record._Properties.empty());
}

TEST(MabRixSAXHandlerSavedQueryResult, RegisteredUnderItsOwnClassName)
{
  const MabRixTestReading Reading = ReadQuery("<q/>");
  EXPECT_STREQ(Reading.Handler()->GetImpl()->IsA(), "MabRixSAXHandlerSavedQueryResult");
  EXPECT_STREQ(Reading.Values()[0]->GetImpl()->IsA(), "MabRixSavedQueryResultValue");
}
