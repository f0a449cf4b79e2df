#include "collection/Editions.h"
#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"
#include "util/Profile.h"

namespace crashvane {

int TalisCollection::CollectVersion() {
    static constexpr Edition Editions[] = {{"talisonline.exe", "zhcn"},
                                           {"taliswz.exe", "wzzhcn"},
                                           {"talisvgame.exe", "vi_vn"},
                                           {"talisonlinefree.exe", "freezhcn"},
                                           {"talisvnewgame.exe", "xzzhcn"}};
    Product& Product = m_CrashReporter.Product;
    const std::string strEdition = EditionOf(Product.ProductName, Editions, "");
    const bool bVietnamese = strEdition == "vi_vn";
    const std::string strVersionCfg = BesideProgram(bVietnamese ? "config.ini" : "versionlist.cfg");
    const char* pszSection = strEdition == "freezhcn" ? "2" : "1";
    const char* pszThirdKey = strEdition == "wzzhcn" ? "GeneralVersion" : "ClientVersion";

    Product.ProductVersionEx = strEdition;
    if (strEdition.empty()) {
        return 1;
    }
    if (!CheckVersionFile("TalisCollection::CollectVersion", strVersionCfg)) {
        return 0;
    }
    if (bVietnamese) {
        Product.ProductVersion = ReadProfileText(strVersionCfg, "Version", "Version");
        return 1;
    }
    Product.ProductVersion = ReadProfileText(strVersionCfg, pszSection, "MajorVersion") + "." +
                             ReadProfileText(strVersionCfg, pszSection, "Version") + "." +
                             ReadProfileText(strVersionCfg, pszSection, pszThirdKey);
    return 1;
}

}  // namespace crashvane
