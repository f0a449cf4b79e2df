// The products with a section of "version.cfg" named after the executable, and a version of two parts.
#include "collection/Editions.h"
#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"
#include "util/Files.h"

namespace crashvane {

namespace {

constexpr const char* GameSection = "game.exe";

std::string OrvelEdition(const std::string& strExecutable) {
    static constexpr Edition Editions[] = {
        {"gamefree.exe", "freezhcn"}, {"gamefree_y.exe", "vnib"}, {"gamecl.exe", "orvelcl"}};
    return EditionOf(strExecutable, Editions, "pricingzhcn");
}

}  // namespace

int CymraCollection::CollectVersion() {
    static constexpr Edition Editions[] = {{"gamexp.exe", "zhcn-exp"}};
    const std::string strVersionCfg = BesideProgram("version.cfg");
    Product& Product = m_CrashReporter.Product;

    Product.ProductVersionEx = EditionOf(Product.ProductName, Editions, "zhcn");
    if (!CheckVersionFile("CymraCollection::CollectVersion", strVersionCfg)) {
        return 0;
    }
    Product.ProductVersion = ReadDottedVersion(strVersionCfg, GameSection, "CurVersion") + PakSuffix("Pak");
    return 1;
}

int EssarnCollection::CollectVersion() {
    const std::string strVersionCfg = BesideProgram("version.cfg");
    Product& Product = m_CrashReporter.Product;

    Product.ProductVersionEx = "zhcn";
    if (!CheckVersionPath("EssarnCollection::CollectVersion", strVersionCfg)) {
        return 0;
    }
    if (FileExists(strVersionCfg)) {
        Product.ProductVersion = ReadDottedVersion(strVersionCfg, GameSection, "Version");
    }
    return 1;
}

int OrvelCollection::GetProjectImgId() {
    return OrvelEdition(m_CrashReporter.Product.ProductName) == "vnib" ? 157 : 146;
}

int OrvelCollection::CollectVersion() {
    const std::string strVersionCfg = BesideProgram("version.cfg");
    Product& Product = m_CrashReporter.Product;
    const std::string strEdition = OrvelEdition(Product.ProductName);
    const char* pszSection = strEdition == "freezhcn"  ? "gamefree.exe"
                             : strEdition == "vnib"    ? "gamefree_y.exe"
                             : strEdition == "orvelcl" ? "gamecl.exe"
                                                       : GameSection;

    Product.ProductVersionEx = strEdition;
    if (!CheckVersionFile("OrvelCollection::CollectVersion", strVersionCfg)) {
        return 0;
    }
    Product.ProductVersion = ReadDottedVersion(strVersionCfg, pszSection, "Version");
    return 1;
}

}  // namespace crashvane
