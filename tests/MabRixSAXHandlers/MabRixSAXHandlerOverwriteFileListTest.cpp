#include <gtest/gtest.h>

#include <stdexcept>

#include "MabRixSAXHandlerOverwriteFileList.h"
#include "MabRixStringMapValue.h"
#include "MabRixTestDirect.h"
#include "MabRixTestSupport.h"

namespace
{
MabRixTestReading ReadList(const std::string& iXml)
{
  return MabRixRead(iXml, MabRixMake<MabRixSAXHandlerOverwriteFileList>());
}

// The one map the handler handed up.
const MabRixStringMapValue& TheMap(const MabRixTestReading& iReading)
{
  EXPECT_EQ(iReading.Values().size(), 1u);
  const MabRixStringMapValue* pMap =
      iReading.Values().empty() ? nullptr : MabRixValueAs<MabRixStringMapValue>(iReading.Values()[0]);
  if (!pMap)
    throw std::runtime_error("no map value was handed up");
  return *pMap;
}
}  // namespace

TEST(MabRixSAXHandlerOverwriteFileList, MapsEachBusIdToItsFileName)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadList(
      "<files>"
      "<filedetails busid='1.2.3' filename='a.prt'/>"
      "<filedetails filename='b.asm' busid='4.5.6'></filedetails>"
      "</files>");
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixStringMapValue& Map = TheMap(Reading);
  ASSERT_EQ(Map._Value.Size(), 2);
  EXPECT_EQ(Map._Value["1.2.3"], "a.prt");
  EXPECT_EQ(Map._Value["4.5.6"], "b.asm");
  EXPECT_EQ(Map.IsA(), std::string("MabRixStringMapValue"));
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerOverwriteFileList, FileDetailsWithoutBusIdOrWithEmptyFileNameAddsNothing)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadList(
      "<files>"
      "<filedetails filename='nobus.prt'/>"
      "<filedetails busid='1' filename=''/>"
      "<filedetails busid='2'/>"
      "<filedetails busid='' filename='emptybus.prt'/>"
      "<filedetails busid='3' filename='kept.prt'/>"
      "</files>");
  const MabRixStringMapValue& Map = TheMap(Reading);
  ASSERT_EQ(Map._Value.Size(), 1);
  EXPECT_EQ(Map._Value["3"], "kept.prt");
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerOverwriteFileList, RepeatedBusIdKeepsTheFirstFileName)
{
  const MabRixTestReading Reading = ReadList(
      "<files><filedetails busid='7' filename='first.prt'/><filedetails busid='7' filename='second.prt'/></files>");
  const MabRixStringMapValue& Map = TheMap(Reading);
  ASSERT_EQ(Map._Value.Size(), 1);
  EXPECT_EQ(Map._Value["7"], "first.prt");
}

TEST(MabRixSAXHandlerOverwriteFileList, EmptyListHandsAnEmptyMapToTheParent)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  const MabRixTestReading Reading = ReadList("<files/>");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(TheMap(Reading)._Value.Size(), 0);
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerOverwriteFileList, NestedFileDetailsAtAnyDepthAreReadTheSameWay)
{
  const MabRixTestReading Reading = ReadList(
      "<files>"
      "<group><filedetails busid='a' filename='a.prt'><filedetails busid='b' filename='b.prt'/></filedetails></group>"
      "<x><y><z><filedetails busid='c' filename='c.prt'/></z></y></x>"
      "<files><filedetails busid='d' filename='d.prt'/></files>"
      "</files>");
  EXPECT_EQ(Reading._Result, S_OK);
  const MabRixStringMapValue& Map = TheMap(Reading);
  ASSERT_EQ(Map._Value.Size(), 4);
  EXPECT_EQ(Map._Value["a"], "a.prt");
  EXPECT_EQ(Map._Value["b"], "b.prt");
  EXPECT_EQ(Map._Value["c"], "c.prt");
  EXPECT_EQ(Map._Value["d"], "d.prt");
}

TEST(MabRixSAXHandlerOverwriteFileList, OtherElementsAndTextAreIgnored)
{
  const MabRixTestReading Reading =
      ReadList("<files>text<details busid='x' filename='x.prt'/><filedetail busid='y' filename='y.prt'/></files>");
  EXPECT_EQ(TheMap(Reading)._Value.Size(), 0);
}

TEST(MabRixSAXHandlerOverwriteFileList, ClosingItsElementHandsTheParserBackAndTheMapUpOnce)
{
  const MabRixTestReading Reading =
      MabRixRead("<response><files><filedetails busid='1' filename='f'/></files><after/></response>",
                 MabRixMake<MabRixSAXHandlerOverwriteFileList>(), "files");
  EXPECT_EQ(Reading._Result, S_OK);
  EXPECT_EQ(TheMap(Reading)._Value.Size(), 1);
  // <after/> start and end, then </response>, reach the root again.
  EXPECT_EQ(Reading._spRoot->EventsAfterStart(), 3);
}

TEST(MabRixSAXHandlerOverwriteFileList, TheMapOutlivesTheHandler)
{
  MabIRixValue_var spMap;
  {
    const MabRixTestReading Reading = ReadList("<files><filedetails busid='1' filename='f'/></files>");
    ASSERT_EQ(Reading.Values().size(), 1u);
    spMap = Reading.Values()[0];
  }
  ASSERT_TRUE(!!spMap);
  EXPECT_EQ(spMap->GetRefCount(), 1u);
  EXPECT_EQ(MabRixValueAs<MabRixStringMapValue>(spMap)->_Value["1"], "f");
}

TEST(MabRixSAXHandlerOverwriteFileList, NullAttributeListAddsNothing)
{
  MabRixTestReporter Reporter(MabRixTestReporter::Stop);
  MabRixTestParent Parent;
  KelVar<MabRixSAXHandlerOverwriteFileList> spHandler =
      KelVar<MabRixSAXHandlerOverwriteFileList>::Adopt(new MabRixSAXHandlerOverwriteFileList(Parent.Root()));
  EXPECT_EQ(spHandler->StartElement("filedetails", KelISAXAttributeList_var()), S_OK);
  EXPECT_EQ(spHandler->StartElement("filedetails", MabRixTestAttributeList::Make({{"busid", "1"}, {"filename", "f"}})),
            S_OK);
  // The handler's own element closes: its depth falls below 0.
  EXPECT_EQ(spHandler->EndElement(""), S_OK);
  ASSERT_EQ(Parent.Values().size(), 1u);
  const MabRixStringMapValue* pMap = MabRixValueAs<MabRixStringMapValue>(Parent.Values()[0]);
  ASSERT_NE(pMap, nullptr);
  ASSERT_EQ(pMap->_Value.Size(), 1);
  EXPECT_EQ(pMap->_Value["1"], "f");
  EXPECT_TRUE(Reporter.Reports().empty());
}

TEST(MabRixSAXHandlerOverwriteFileList, IsRegisteredAsAHandler)
{
  MabRixTestParent Parent;
  MabIRixSAXHandler_var spHandler =
      MabIRixSAXHandler_var::Adopt(CreateTIEMabIRixSAXHandlerMabRixSAXHandlerOverwriteFileList(
          *new MabRixSAXHandlerOverwriteFileList(Parent.Root())));
  EXPECT_EQ(std::string(spHandler->GetImpl()->IsA()), "MabRixSAXHandlerOverwriteFileList");
  EXPECT_TRUE(spHandler->GetImpl()->IsAKindOf("MabRixSAXHandlerBase"));
  EXPECT_EQ(std::string(spHandler->GetImpl()->GetMetaObject()->_Framework), "MabRixCommandModel");
  MabIRixResponse_var spResponse;
  EXPECT_EQ(spHandler->GetResponse(spResponse), E_FAIL);
}
