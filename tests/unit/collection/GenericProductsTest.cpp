// The five products with a plain "version.cfg".
#include <gmock/gmock.h>

#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using testing::IsEmpty;

constexpr const char* VersionCfg =
    "[Version]\r\nversion=2.5\r\nversionex=not this\r\nversionName=the name\r\nVersionLineName=the line\r\n";

template <typename Class>
class GenericProducts : public test::CollectorTest {};

using Classes =
    testing::Types<EditorCollection, ToolCollection, IvorelGameClientCollection, MendwellCollection, DovekCollection>;
TYPED_TEST_SUITE(GenericProducts, Classes);

TYPED_TEST(GenericProducts, ReadTheVersionWithoutASuffix) {
    this->m_Installation.Write("version.cfg", VersionCfg);
    this->m_Installation.Current().MakeFolder("Pak");
    const auto pCollector = test::MakeCollector<TypeParam>();
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "2.5");
    EXPECT_THAT(this->Checks(), IsEmpty());
}

TYPED_TEST(GenericProducts, ReadVersionExFromTheirOwnKey) {
    this->m_Installation.Write("version.cfg", VersionCfg);
    const auto pCollector = test::MakeCollector<TypeParam>();
    pCollector->CollectVersion();
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx,
              (std::is_same_v<TypeParam, DovekCollection> ? "the line" : "the name"));
}

}  // namespace
}  // namespace crashvane
