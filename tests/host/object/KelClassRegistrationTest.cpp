#include <gtest/gtest.h>

#include <set>
#include <string>

#include "KelClassMacros.h"
#include "KelError.h"
#include "KelExpatParser.h"
#include "KelSAXHandlerBase.h"
#include "MabRixSAXHandlerBase.h"
#include "MabRixSAXHandlerBoolean.h"
#include "MabRixSAXHandlerString.h"

// Registered test classes (outside an anonymous namespace: every operation
// of the record is defined whether a test calls it or not).
class KelTestShape : public KelBaseUnknown
{
  KelDeclareClass
};
class KelTestSquare : public KelTestShape
{
  KelDeclareClass
};

KelImplementClass(KelTestShape, KelBaseUnknown, "KelTests")
KelImplementClass(KelTestSquare, KelTestShape, "KelTests")

TEST(KelClassRegistration, RootRecordHasThePlaceholderBase)
{
  const KelMetaObject* pRecord = KelBaseUnknown::MetaObject();
  EXPECT_STREQ(pRecord->_Name, "KelBaseUnknown");
  EXPECT_EQ(pRecord->_pBase, nullptr);
  EXPECT_STREQ(pRecord->_BaseName, "Kelnull");
  EXPECT_STREQ(KelBaseUnknown::ClassId(), "KelBaseUnknown");
}

TEST(KelClassRegistration, RecordsChainToTheirBases)
{
  const KelMetaObject* pRecord = KelTestSquare::MetaObject();
  EXPECT_STREQ(pRecord->_Name, "KelTestSquare");
  EXPECT_STREQ(pRecord->_Framework, "KelTests");
  EXPECT_STREQ(pRecord->_BaseName, "KelTestShape");
  EXPECT_EQ(pRecord->_pBase, KelTestShape::MetaObject());
  EXPECT_EQ(KelTestShape::MetaObject()->_pBase, KelBaseUnknown::MetaObject());
  EXPECT_STREQ(KelTestSquare::ClassId(), "KelTestSquare");
  EXPECT_EQ(KelTestSquare::CreateItself(), nullptr);
}

TEST(KelClassRegistration, IsAAndIsAKindOfFollowTheDynamicClass)
{
  KelBaseUnknown_var spSquare = KelBaseUnknown_var::Adopt(new KelTestSquare());
  EXPECT_STREQ(spSquare->IsA(), "KelTestSquare");
  EXPECT_EQ(spSquare->GetMetaObject(), KelTestSquare::MetaObject());
  EXPECT_TRUE(spSquare->IsAKindOf("KelTestSquare"));
  EXPECT_TRUE(spSquare->IsAKindOf("KelTestShape"));
  EXPECT_TRUE(spSquare->IsAKindOf("KelBaseUnknown"));
  EXPECT_FALSE(spSquare->IsAKindOf("KelTestCircle"));
  EXPECT_FALSE(spSquare->IsAKindOf("Kelnull"));
  EXPECT_FALSE(spSquare->IsAKindOf(nullptr));
  KelBaseUnknown_var spShape = KelBaseUnknown_var::Adopt(new KelTestShape());
  EXPECT_FALSE(spShape->IsAKindOf("KelTestSquare"));
}

TEST(KelClassRegistration, HandlerClassesBelongToTheCommandModelFramework)
{
  const KelMetaObject* pBase = MabRixSAXHandlerBase::MetaObject();
  EXPECT_STREQ(pBase->_Name, "MabRixSAXHandlerBase");
  EXPECT_STREQ(pBase->_Framework, "MabRixCommandModel");
  EXPECT_STREQ(pBase->_BaseName, "KelSAXHandlerBase");
  EXPECT_EQ(pBase->_pBase, KelSAXHandlerBase::MetaObject());
  EXPECT_EQ(MabRixSAXHandlerBase::CreateItself(), nullptr);
  EXPECT_STREQ(MabRixSAXHandlerBase::ClassId(), "MabRixSAXHandlerBase");
  for (const KelMetaObject* pRecord : {MabRixSAXHandlerString::MetaObject(), MabRixSAXHandlerBoolean::MetaObject()})
  {
    EXPECT_STREQ(pRecord->_Framework, "MabRixCommandModel");
    EXPECT_STREQ(pRecord->_BaseName, "MabRixSAXHandlerBase");
    EXPECT_EQ(pRecord->_pBase, pBase);
    EXPECT_TRUE(pRecord->IsAKindOf("KelSAXHandlerBase"));
    EXPECT_TRUE(pRecord->IsAKindOf("KelBaseUnknown"));
  }
  EXPECT_STREQ(MabRixSAXHandlerString::MetaObject()->_Name, "MabRixSAXHandlerString");
  EXPECT_STREQ(MabRixSAXHandlerBoolean::MetaObject()->_Name, "MabRixSAXHandlerBoolean");
  EXPECT_EQ(MabRixSAXHandlerString::CreateItself(), nullptr);
  EXPECT_EQ(MabRixSAXHandlerBoolean::CreateItself(), nullptr);
}

TEST(KelClassRegistration, ErrorClassesAreRegistered)
{
  EXPECT_STREQ(MabRixError::MetaObject()->_Framework, "MabRixCommandModel");
  EXPECT_STREQ(MabRixError::MetaObject()->_BaseName, "KelError");
  KelBaseUnknown_var spError = KelBaseUnknown_var::Adopt(new MabRixError("Unexpected", "MabRixIntegration"));
  EXPECT_STREQ(spError->IsA(), "MabRixError");
  EXPECT_TRUE(spError->IsAKindOf("KelError"));
  EXPECT_STREQ(KelExpatParser::MetaObject()->_Name, "KelExpatParser");
}

TEST(KelClassRegistration, TheRegistryListsEveryImplementedClass)
{
  std::set<std::string> Names;
  for (const KelMetaObject* pRecord : KelClassRegistration::RegisteredClasses())
    Names.insert(pRecord->_Name);
  EXPECT_EQ(Names.count("KelTestShape"), 1u);
  EXPECT_EQ(Names.count("KelTestSquare"), 1u);
  EXPECT_EQ(Names.count("MabRixSAXHandlerString"), 1u);
  EXPECT_EQ(Names.count("KelExpatParser"), 1u);
}
