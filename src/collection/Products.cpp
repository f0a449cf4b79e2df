#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"
#include "util/Profile.h"

namespace crashvane {

int XXCollection::CollectVersion() {
    m_CrashReporter.Product.ProductVersion = "0.00";
    m_CrashReporter.Product.ProductVersionEx = "zhcn";
    return 1;
}

int HeskCollection::CollectVersion() {
    const std::string strVersionCfg = BesideProgram("update.ini");
    Product& Product = m_CrashReporter.Product;

    Product.ProductVersionEx = "zhcn";
    if (!CheckVersionFile("HeskCollection::CollectVersion", strVersionCfg)) {
        return 0;
    }
    Product.ProductVersion = ReadProfileText(strVersionCfg, "Version", "AppVersion");
    return 1;
}

}  // namespace crashvane
