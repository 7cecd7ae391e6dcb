// What a whole response costs in allocations once its records are read: a
// record whose texts fit in a string allocates nothing of its own, so reading
// twice the records costs only the growth of the containers (a few dozen
// allocations), whatever the handler.
#include <gtest/gtest.h>

#include <string>

#include "MabRixCADObjectContext.h"
#include "MabRixSAXHandlerCollectionListQueryResult.h"
#include "MabRixSAXHandlerCustomQueryResult.h"
#include "MabRixSAXHandlerObjectDetailsList.h"
#include "MabRixSAXHandlerObjectList.h"
#include "MabRixSAXHandlerRelationshipList.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTestAllocations.h"
#include "MabRixTestSupport.h"

namespace
{
// Every text of these records is at most 15 bytes.
std::string ObjectList(int iCount)
{
  std::string Xml = "<objectlist>";
  for (int i = 0; i < iCount; ++i)
  {
    const std::string N = std::to_string(i);
    Xml += "<cadobject busid='B" + N + "' bustype='Part' cadid='C" + N + "' zqtype='ZQ' zqversion='A.1' name='P" + N +
           "' oid='O" + N + "' type='part' uuid='U" + N + "' islocked='false' locker='' dirname='/d' filename='f" + N +
           "' renamedfrom='R" + N + "'><Name>P" + N + "</Name><State>In Work</State><preview>/t/" + N +
           "</preview><attribute><name>Material</name><value>Steel</value></attribute></cadobject>";
  }
  return Xml + "</objectlist>";
}

std::string ObjectDetails(int iCount)
{
  std::string Xml = "<objectdetailslist>";
  for (int i = 0; i < iCount; ++i)
  {
    const std::string N = std::to_string(i);
    Xml += "<cadobject type='part' name='P" + N +
           "' zqrevision='A' bustype='Part' zqversion='A.1' status='In' lockedby='' islocked='false' "
           "connectedfolder='a|b' oid='O" +
           N + "' uuid='U" + N + "' uuidconflict='false' filenamewithpath='/d/f" + N +
           "' modified='false'><revisioninfolist><revisioninfo revision='A' nextversion='A.2' lockedby='' "
           "lockstatus='unlocked' overwriteaccess='true' versionaccess='true'><message></message></revisioninfo>"
           "</revisioninfolist><Type>Part</Type><State>In Work</State><Lock>false</Lock></cadobject>";
  }
  return Xml + "</objectdetailslist>";
}

std::string RelationshipList(int iCount)
{
  std::string Xml = "<relationshiplist>";
  for (int i = 0; i < iCount; ++i)
  {
    const std::string N = std::to_string(i);
    Xml += "<relationship cadrelationship='child' rid='R" + N + "' parent='C" + N + "' child='D" + N +
           "' quantity='2'><attribute><name>designator</name><value>X" + N + "</value></attribute></relationship>";
  }
  return Xml + "</relationshiplist>";
}

std::string CustomQuery(int iCount)
{
  std::string Xml = "<queryresult>";
  for (int i = 0; i < iCount; ++i)
  {
    const std::string N = std::to_string(i);
    Xml += "<row rowid='C" + N + "' oid='O" + N + "' cadtype='part' name='P" + N +
           "' revision='A' type='Part'><Ver>1</Ver><State>In Work</State><preview>/t/" + N +
           "</preview><attribute><name>Material</name><value>Steel</value></attribute></row>";
  }
  return Xml + "</queryresult>";
}

std::string CollectionList(int iCount)
{
  std::string Xml = "<collectionlist>";
  for (int i = 0; i < iCount; ++i)
    Xml += "<row><name>N" + std::to_string(i) + "</name><description>D" + std::to_string(i) + "</description></row>";
  return Xml + "</collectionlist>";
}

// Allocations of reading iXml, context and handlers included.
template <class Read>
std::size_t AllocationsOf(const std::string& iXml, Read&& iRead)
{
  const std::size_t Before = MabRixTestAllocations::Count();
  iRead(iXml);
  return MabRixTestAllocations::Count() - Before;
}

// Reading 2,000 records against reading 1,000: the extra thousand cost only
// growth.
template <class Make, class Read>
void ExpectNoAllocationPerRecord(Make&& iMake, Read&& iRead)
{
  const std::string Small = iMake(1000);
  const std::string Large = iMake(2000);
  const std::size_t SmallCount = AllocationsOf(Small, iRead);
  const std::size_t LargeCount = AllocationsOf(Large, iRead);
  EXPECT_LT(LargeCount, SmallCount + 100)
      << SmallCount << " allocations for 1,000 records, " << LargeCount << " for 2,000";
}

template <class Handler>
void ReadIntoTNRContext(const std::string& iXml)
{
  MabRixTNRObjectContext* pContext = new MabRixTNRObjectContext();
  EXPECT_EQ(MabRixRead(iXml, MabRixMake<Handler>(pContext))._Result, S_OK);
  pContext->Release();
}
}  // namespace

TEST(MabRixResponseAllocation, ObjectListRecordsAllocateNothingOfTheirOwn)
{
  ExpectNoAllocationPerRecord(ObjectList, ReadIntoTNRContext<MabRixSAXHandlerObjectList>);
}

TEST(MabRixResponseAllocation, ObjectDetailsRecordsAllocateOnlyTheirFolderListAndTheirMinorObjectsID)
{
  // The connected folder is set through a list of texts made for it, and the
  // minor object keeps an ID of type and name.
  const auto Read = [](const std::string& iXml) {
    MabRixCADObjectContext* pContext = new MabRixCADObjectContext();
    EXPECT_EQ(MabRixRead(iXml, MabRixMake<MabRixSAXHandlerObjectDetailsList>(pContext))._Result, S_OK);
    pContext->Release();
  };
  const std::size_t SmallCount = AllocationsOf(ObjectDetails(1000), Read);
  const std::size_t LargeCount = AllocationsOf(ObjectDetails(2000), Read);
  EXPECT_LT(LargeCount, SmallCount + 2 * 1000 + 100);
}

TEST(MabRixResponseAllocation, RelationshipRecordsAllocateOnlyTheFormatOfTheirAttributeElement)
{
  // Every attribute element gets a fresh string value format.
  const std::size_t SmallCount =
      AllocationsOf(RelationshipList(1000), ReadIntoTNRContext<MabRixSAXHandlerRelationshipList>);
  const std::size_t LargeCount =
      AllocationsOf(RelationshipList(2000), ReadIntoTNRContext<MabRixSAXHandlerRelationshipList>);
  EXPECT_LT(LargeCount, SmallCount + 1000 + 100);
}

TEST(MabRixResponseAllocation, CustomQueryRowsAllocateNothingOfTheirOwn)
{
  ExpectNoAllocationPerRecord(CustomQuery, [](const std::string& iXml) {
    EXPECT_EQ(MabRixRead(iXml, MabRixMake<MabRixSAXHandlerCustomQueryResult>())._Result, S_OK);
  });
}

TEST(MabRixResponseAllocation, CollectionRowsAllocateNothingOfTheirOwn)
{
  ExpectNoAllocationPerRecord(CollectionList, [](const std::string& iXml) {
    EXPECT_EQ(MabRixRead(iXml, MabRixMake<MabRixSAXHandlerCollectionListQueryResult>())._Result, S_OK);
  });
}
