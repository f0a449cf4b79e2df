// The products with a plain "version.cfg": they differ in the key of their version ex and in their name in the log.
#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"

namespace crashvane {

std::string EditorCollection::GetVersionExA() {
    return ReadVersionEx("EditorCollection::GetVersionExA", "versionName");
}

int EditorCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersionEx = GetVersionExA();
    return ReadVersion("EditorCollection::CollectVersion", m_CrashReporter.Product);
}

std::string ToolCollection::GetVersionExA() {
    return ReadVersionEx("ToolCollection::GetVersionExA", "versionName");
}

int ToolCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersionEx = GetVersionExA();
    return ReadVersion("ToolCollection::CollectVersion", m_CrashReporter.Product);
}

std::string IvorelGameClientCollection::GetVersionExA() {
    return ReadVersionEx("IvorelGameClientCollection::GetVersionExA", "versionName");
}

int IvorelGameClientCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersionEx = GetVersionExA();
    return ReadVersion("IvorelGameClientCollection::CollectVersion", m_CrashReporter.Product);
}

std::string MendwellCollection::GetVersionExA() {
    return ReadVersionEx("MendwellCollection::GetVersionExA", "versionName");
}

int MendwellCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersionEx = GetVersionExA();
    return ReadVersion("MendwellCollection::CollectVersion", m_CrashReporter.Product);
}

int MendwellCollection::CollectLog() {
    return Collection::CollectLog(BesideProgram("logs\\Mendwell"));
}

std::string DovekCollection::GetVersionExA() {
    return ReadVersionEx("DovekCollection::GetVersionExA", "VersionLineName");
}

int DovekCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersionEx = GetVersionExA();
    return ReadVersion("DovekCollection::CollectVersion", m_CrashReporter.Product);
}

}  // namespace crashvane
