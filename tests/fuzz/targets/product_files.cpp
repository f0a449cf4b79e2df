// Every product's collector over any version, options and login files, against the tables of what each one reads.
// Input: product, executable, moment of the crash; then the files, each begun by a line "@" and a letter.
#include <map>
#include <vector>

#include "Fuzz.h"
#include "LogLines.h"
#include "collection/Collection.h"
#include "collection/Registry.h"
#include "native/World.h"

namespace {

using crashvane::Collection;

constexpr std::size_t LongestValue = 1023;
const std::string Bin = "C:\\game\\bin\\";
const std::string Up = "C:\\game\\";

// The letters of the files in the input.
const std::map<char, std::string> Places = {
    {'v', Bin + "version.cfg"},
    {'x', Bin + "version_exp.cfg"},
    {'l', Bin + "versionlist.cfg"},
    {'c', Bin + "config.ini"},
    {'u', Bin + "update.ini"},
    {'d', Bin + "UserData\\Temp\\dumpinfo.ini"},
    {'s', Bin + "user\\setting.ini"},
    {'V', Up + "version.cfg"},
    {'C', Up + "config.ini"},
    {'E', Up + "engineoptionsnap.ini"},
    {'L', Up + "userdata\\login.ini"},
    {'1', Up + "userdata\\alice\\login.ini"},
    {'2', Up + "userdata\\bob\\login.ini"},
};

const char* const Products[] = {
    "BRENN",  "FYRN",   "GALDOR",           "CYMRA",    "HESK", "ORVEL", "XX", "TALIS", "TOOL", "DOVEK",
    "ESSARN", "EDITOR", "IVORELGAMECLIENT", "MENDWELL", "QRL"};

bool Exists(const std::string& strPath) {
    const native::File* pFile = native::FindFile(strPath);
    return pFile != nullptr && !pFile->bFolder;
}

bool IsFolder(const std::string& strPath) {
    const native::File* pFile = native::FindFile(strPath);
    return pFile != nullptr && pFile->bFolder;
}

std::string Value(const std::string& strPath, const char* pszSection, const char* pszKey) {
    std::string strValue;
    native::FindSetting(strPath, pszSection, pszKey, strValue);
    return strValue.substr(0, LongestValue);
}

std::string Lowered(std::string strText) {
    for (char& cByte : strText) {
        cByte = cByte >= 'A' && cByte <= 'Z' ? static_cast<char>(cByte + 32) : cByte;
    }
    return strText;
}

using Table = std::map<std::string, std::string>;

std::string Lookup(const Table& Rows, const std::string& strKey, const std::string& strOther) {
    const auto Found = Rows.find(strKey);
    return Found != Rows.end() ? Found->second : strOther;
}

// What a collector leaves of the version; "old" is what the report had.
struct Version {
    std::string strVersion = "old";
    std::string strEx = "old ex";
    int nResult = 1;
};

std::string Suffix(const std::string& strFolder) {
    return IsFolder(strFolder) ? "_PAK" : "_SVN";
}

Version ExpectedBrenn(const std::string& strExe) {
    Version Result;
    const std::string strFile = Up + "version.cfg";
    if (!Exists(strFile)) {
        Result.nResult = 0;
        return Result;
    }
    Result.strVersion = Value(strFile, "Version", "Tessel.version") + Suffix("C:\\Pak");
    const bool bPakV4 = Value(strFile, "Version", "Tessel.VersionCodeName") == "pakv4";
    const std::string strPrefix = bPakV4 ? "pakv4_" : "";
    const std::string strClient =
        strPrefix + Value(strFile, "Version", "Tessel.versionex") + Value(strFile, "Version", "Tessel.VersionLineName");
    Table Rows = {{"brennclient.exe", strClient},
                  {"mpak_downloader.exe", "mpak_downloader"},
                  {"brennbenchmarkx64.exe", "benchmark"},
                  {"brennconsolex64.exe", "console"}};
    if (bPakV4) {
        Rows["ztpk4_streamdownloaderx64.exe"] = Rows["ztpk4_streamdownloaderx64d.exe"] = "pakv4_streamdownloader";
    }
    Result.strEx = Lookup(Rows, strExe, "");
    return Result;
}

Version ExpectedFyrn(const std::string& strExe) {
    Version Result;
    const std::string strFile = Bin + "version.cfg";
    Result.strEx = strExe == "fyrnexp.exe" ? "expzhcn" : "other";
    if (strExe == "fyrn.exe") {
        Result.strEx = !Exists(strFile) ? "zhcn"
                       : Value(strFile, "Version", "VersionLineName") == "NW"
                           ? "NW"
                           : Value(strFile, "Version", "versionName");
    }
    const Table Files = {{"zhcn", strFile}, {"zhtw", strFile}, {"NW", strFile}, {"expzhcn", Bin + "version_exp.cfg"}};
    const std::string strSource = Lookup(Files, Result.strEx, "");
    if (!strSource.empty()) {
        Result.nResult = Exists(strSource) ? 1 : 0;
        Result.strVersion = Exists(strSource) ? Value(strSource, "Version", "version") : Result.strVersion;
    }
    return Result;
}

Version ExpectedTalis(const std::string& strExe) {
    const Table Editions = {{"talisonline.exe", "zhcn"},
                            {"taliswz.exe", "wzzhcn"},
                            {"talisvgame.exe", "vi_vn"},
                            {"talisonlinefree.exe", "freezhcn"},
                            {"talisvnewgame.exe", "xzzhcn"}};
    const Table Sections = {{"zhcn", "1"}, {"wzzhcn", "1"}, {"freezhcn", "2"}, {"xzzhcn", "1"}};
    Version Result;
    Result.strEx = Lookup(Editions, strExe, "");
    const std::string strFile = Bin + (Result.strEx == "vi_vn" ? "config.ini" : "versionlist.cfg");
    if (Result.strEx.empty() || !Exists(strFile)) {
        Result.nResult = Result.strEx.empty() ? 1 : 0;
        return Result;
    }
    const std::string strSection = Lookup(Sections, Result.strEx, "Version");
    const char* pszThird = Result.strEx == "wzzhcn" ? "GeneralVersion" : "ClientVersion";
    Result.strVersion = Value(strFile, strSection.c_str(), "Version");
    if (Result.strEx != "vi_vn") {
        Result.strVersion = Value(strFile, strSection.c_str(), "MajorVersion") + "." + Result.strVersion + "." +
                            Value(strFile, strSection.c_str(), pszThird);
    }
    return Result;
}

Version ExpectedDotted(const std::string& strProduct, const std::string& strExe) {
    const Table Orvel = {{"gamefree.exe", "freezhcn"}, {"gamefree_y.exe", "vnib"}, {"gamecl.exe", "orvelcl"}};
    const std::string strFile = Bin + "version.cfg";
    const bool bOrvel = strProduct == "ORVEL";
    const bool bCymra = strProduct == "CYMRA";
    const std::string strSection = bOrvel && Orvel.contains(strExe) ? strExe : "game.exe";
    Version Result;
    Result.strEx = bOrvel                             ? Lookup(Orvel, strExe, "pricingzhcn")
                   : bCymra && strExe == "gamexp.exe" ? "zhcn-exp"
                                                      : "zhcn";
    if (!Exists(strFile)) {
        Result.nResult = strProduct == "ESSARN" ? 1 : 0;
        return Result;
    }
    // The part behind the dot has a byte less room than any other value.
    Result.strVersion =
        Value(strFile, strSection.c_str(), "MajorVersion") + "." +
        Value(strFile, strSection.c_str(), bCymra ? "CurVersion" : "Version").substr(0, LongestValue - 1);
    Result.strVersion += bCymra ? Suffix("C:\\run\\Pak") : "";
    return Result;
}

Version ExpectedPlain(const char* pszExKey) {
    const std::string strFile = Bin + "version.cfg";
    Version Result;
    Result.strEx = Exists(strFile) ? Value(strFile, "Version", pszExKey) : "";
    Result.strVersion = Exists(strFile) ? Value(strFile, "Version", "version") : Result.strVersion;
    return Result;
}

Version ExpectedDefault() {
    const std::string strFile = Bin + "version.cfg";
    Version Result;
    Result.nResult = Exists(strFile) ? 1 : 0;
    if (Exists(strFile)) {
        Result.strVersion = Value(strFile, "Version", "version") + Suffix("C:\\run\\Pak");
        Result.strEx = Value(strFile, "Version", "versionex") + Value(strFile, "Version", "VersionLineName");
    }
    return Result;
}

Version ExpectedHesk() {
    const std::string strFile = Bin + "update.ini";
    Version Result;
    Result.strEx = "zhcn";
    Result.nResult = Exists(strFile) ? 1 : 0;
    Result.strVersion = Exists(strFile) ? Value(strFile, "Version", "AppVersion") : Result.strVersion;
    return Result;
}

Version ExpectedVersion(const std::string& strProduct, const std::string& strExe) {
    if (strProduct == "BRENN") {
        return ExpectedBrenn(strExe);
    }
    if (strProduct == "FYRN") {
        return ExpectedFyrn(strExe);
    }
    if (strProduct == "TALIS") {
        return ExpectedTalis(strExe);
    }
    if (strProduct == "CYMRA" || strProduct == "ORVEL" || strProduct == "ESSARN") {
        return ExpectedDotted(strProduct, strExe);
    }
    if (strProduct == "HESK") {
        return ExpectedHesk();
    }
    if (strProduct == "XX") {
        return {"0.00", "zhcn", 1};
    }
    if (strProduct == "GALDOR" || strProduct == "QRL") {
        return ExpectedDefault();
    }
    return ExpectedPlain(strProduct == "DOVEK" ? "VersionLineName" : "versionName");
}

int ExpectedImage(const std::string& strProduct, const std::string& strExe) {
    const std::map<std::string, int> Images = {{"BRENN", 130}, {"FYRN", 131},  {"GALDOR", 132}, {"CYMRA", 136},
                                               {"HESK", 144},  {"ORVEL", 146}, {"XX", 153},     {"TALIS", 154}};
    const std::map<std::string, int> Lines = {{"zhkr", 151}, {"vivn", 156}, {"zhtw", 158}};
    const std::string strLine = Value(Up + "version.cfg", "Version", "Tessel.VersionLineName");
    if (strProduct == "BRENN" && Exists(Up + "version.cfg") && Lines.contains(strLine)) {
        return Lines.at(strLine);
    }
    if (strProduct == "ORVEL" && strExe == "gamefree_y.exe") {
        return 157;
    }
    return Images.contains(strProduct) ? Images.at(strProduct) : 135;
}

// Role, account, region, server.
struct Login {
    std::string strRole, strAccount, strRegion, strServer;
    int nResult = 0;
};

Login ReadLogin(const std::string& strPath, const char* pszSection, std::initializer_list<const char*> Keys) {
    const char* const* ppszKey = Keys.begin();
    return {Value(strPath, pszSection, ppszKey[0]), Value(strPath, pszSection, ppszKey[1]),
            Value(strPath, pszSection, ppszKey[2]), Value(strPath, pszSection, ppszKey[3]), 1};
}

Login ExpectedBrennLogin(long long nCrash) {
    Login Result;
    long long nNearest = 3601;
    // Accounts first, in their order; the folder's own file last.
    for (const char* pszAccount : {"alice", "bob", ""}) {
        const std::string strAccount = pszAccount;
        const std::string strPath = Up + "userdata\\" + (strAccount.empty() ? "" : strAccount + "\\") + "login.ini";
        const native::File* pFile = native::FindFile(strPath);
        if (pFile == nullptr || pFile->bFolder) {
            continue;
        }
        const long long nWritten =
            pFile->uWritten == 0 ? 0 : static_cast<long long>(pFile->uWritten / 10000000) - 11644473600;
        if (std::abs(nWritten - nCrash) < nNearest) {
            nNearest = std::abs(nWritten - nCrash);
            Result = ReadLogin(strPath, "LastLogin", {"RoleName", "?", "RegionName", "ServerName"});
            Result.strAccount = strAccount;
        }
    }
    return Result;
}

Login ExpectedLogin(const std::string& strProduct, long long nCrash) {
    const std::string strFyrn = Bin + "UserData\\Temp\\dumpinfo.ini";
    const std::string strGaldor = Bin + "user\\setting.ini";
    if (strProduct == "BRENN") {
        return ExpectedBrennLogin(nCrash);
    }
    if (strProduct == "FYRN" && Exists(strFyrn)) {
        return ReadLogin(strFyrn, "Main", {"RoleName", "Account", "ZoneName", "SvrName"});
    }
    if (strProduct == "GALDOR" && Exists(strGaldor)) {
        return ReadLogin(strGaldor, "Login", {"RoleName", "Account", "RegionName", "ServerName"});
    }
    return {};
}

std::vector<std::string> ExpectedInfos(const std::string& strProduct) {
    const std::string strFile = Up + "engineoptionsnap.ini";
    if (strProduct != "BRENN") {
        return {};
    }
    if (!Exists(strFile)) {
        return {"engineoptionsnap.ini is not found"};
    }
    const bool bForward = Value(strFile, "ZT3DENGINE", "bEnableRC_ForwardRender") == "1";
    return {std::string("bEnableRC_ForwardRender=") + (bForward ? "1" : "0"),
            "nShadowType=" + Value(strFile, "ZT3DENGINE", "nShadowType"),
            "nFoliageDensity=" + Value(strFile, "ZT3DENGINE", "nFoliageDensity"),
            "fCameraDistance=" + Value(strFile, "ZT3DENGINE", "fCameraDistance")};
}

std::vector<std::string> ExpectedFiles(const std::string& strProduct) {
    const std::string strFile = (strProduct == "BRENN" ? Up : Bin) + "config.ini";
    const bool bTaken = (strProduct == "BRENN" || strProduct == "GALDOR") && Exists(strFile);
    return bTaken ? std::vector<std::string>{strFile} : std::vector<std::string>{};
}

void CheckVersion(Collection& Collector, const std::string& strProduct, const std::string& strExe) {
    const fuzz::LogLines Log;
    const Version Expected = ExpectedVersion(strProduct, strExe);
    fuzz::Require(Collector.CollectVersion() == Expected.nResult, "the version's result");
    const crashvane::Product& Found = Collector.m_CrashReporter.Product;
    fuzz::RequireSame(Found.ProductVersion, Expected.strVersion, "the version");
    fuzz::RequireSame(Found.ProductVersionEx, Expected.strEx, "the version ex");
    fuzz::Require(Expected.nResult == 1 || Log.Lines().size() == 1, "a missing file is one check line");
}

void CheckLogin(Collection& Collector, const std::string& strProduct, long long nCrash) {
    const Login Expected = ExpectedLogin(strProduct, nCrash);
    fuzz::Require(Collector.CollectLoginInfo() == Expected.nResult, "the login's result");
    fuzz::RequireSame(Collector.m_strRoleName, Expected.strRole, "the role");
    fuzz::RequireSame(Collector.m_strAccount, Expected.strAccount, "the account");
    fuzz::RequireSame(Collector.m_strRegionName, Expected.strRegion, "the region");
    fuzz::RequireSame(Collector.m_strServerName, Expected.strServer, "the server");
}

void CheckRest(Collection& Collector, const std::string& strProduct) {
    crashvane::CrashReporter& Report = Collector.m_CrashReporter;
    const bool bBrenn = strProduct == "BRENN";
    fuzz::Require(Collector.CollectInfo() == 1 && Report.CustomInfos == ExpectedInfos(strProduct),
                  "the engine's options");
    fuzz::Require(Collector.CollectConfigFile() == 1 && Report.CustomFiles == ExpectedFiles(strProduct),
                  "the files to pack");
    fuzz::Require(Collector.CollectProductThreadType() == (bBrenn ? 1 : 0), "the thread type's result");
    const bool bMany = Exists(Up + "config.ini") && Value(Up + "config.ini", "Main", "MultiThread") == "1";
    fuzz::RequireSame(Report.Product.ProductThreadType,
                      std::string(!bBrenn ? "old type"
                                  : bMany ? "MultiThread"
                                          : "SingleThread"),
                      "the thread type");
    fuzz::Require(Collector.CollectProductBitType() == 1 && Report.Product.ProductBitType == "x64", "the bit type");
    const bool bForced = strProduct == "GALDOR" || (bBrenn && Report.Product.ProductVersionEx == "bvtzhcn");
    fuzz::Require(Collector.IsForceSend() == bForced, "which reports are always sent");
}

void MakeFolders() {
    for (const char* pszFolder : {"C:\\game", "C:\\game\\bin", "C:\\run", "C:\\game\\userdata",
                                  "C:\\game\\userdata\\alice", "C:\\game\\userdata\\bob"}) {
        native::MakeFolder(pszFolder);
    }
}

void MakeFiles(fuzz::Input& Given, long long nCrash) {
    native::File* pFile = nullptr;
    while (!Given.IsEmpty()) {
        const std::string strLine = Given.Line();
        if (strLine.size() < 2 || strLine[0] != '@') {
            if (pFile != nullptr) {
                pFile->strBytes += strLine + "\n";
            }
        } else if (strLine[1] == 'P') {
            native::MakeFolder(strLine.size() > 2 ? "C:\\Pak" : "C:\\run\\Pak");
        } else if (Places.contains(strLine[1])) {
            const bool bFolder = strLine.size() > 2 && strLine[2] == '/';
            const std::string& strPlace = Places.at(strLine[1]);
            pFile = bFolder ? &native::MakeFolder(strPlace) : &native::MakeFile(strPlace, "");
            // A signed distance from the crash in seconds may follow the letter.
            const long long nDistance = bFolder ? 0 : std::strtol(strLine.c_str() + 2, nullptr, 10) % 100000;
            pFile->uWritten = static_cast<native::Ticks>((nCrash + nDistance + 11644473600) * 10000000);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    const std::string strProduct = Products[Given.Byte() % std::size(Products)];
    const std::string strExecutable = fuzz::UpToZero(Given.Line());
    const auto nCrash = static_cast<long long>(Given.Number(4));
    MakeFolders();
    MakeFiles(Given, nCrash);
    Collection* pCollector = crashvane::CreateCollection(strProduct);
    Collection& Collector = *pCollector;
    Collector.m_CrashReporter = crashvane::CrashReporter();
    Collector.m_CrashReporter.Product = {strExecutable, "old", "old ex", "old type", "old bits"};
    Collector.m_CrashReporter.Exception.ExceptionTime = nCrash;
    Collector.m_strRoleName = Collector.m_strAccount = Collector.m_strRegionName = Collector.m_strServerName = "";
    const std::string strExe = Lowered(strExecutable);
    fuzz::RequireSame(Collector.GetProjectName(), strProduct, "the product's own key");
    CheckVersion(Collector, strProduct, strExe);
    fuzz::Require(Collector.GetProjectImgId() == ExpectedImage(strProduct, strExe), "the banner");
    CheckLogin(Collector, strProduct, nCrash);
    CheckRest(Collector, strProduct);
    return 0;
}
