#include "net/DumpPackage.h"

#include <windows.h>

#include "log/Check.h"
#include "net/MemoryGuard.h"
#include "net/Requests.h"
#include "util/Files.h"
#include "util/Handles.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace crashvane {
namespace {

constexpr const char* REPORT_NAME = "CrashReport.xml";
constexpr std::size_t NAME_SIZE = 64;

struct ZipArchiveTraits {
    using Type = ZipArchive*;
    static ZipArchive* Invalid() { return nullptr; }
    static void Close(ZipArchive* pArchive) { ZipWriter::Close(pArchive); }
};

using ZipArchiveHandle = Owner<ZipArchiveTraits>;

int PostArchive(const Collection& Source, const Config& Settings, const std::string& strArchive,
                const std::string& strFeedback) {
    DumpFileInfo Info;
    Info.key = Source.m_CrashReporter.Exception.DumpKey;
    Info.guid = Source.m_CrashReporter.Exception.DumpGuid;
    Info.file = strArchive;
    Info.remark = strFeedback;
    return PostDumpFile(Settings.m_strDumpFileUrl, Settings.m_strProject, Info);
}

void DeleteArchive(const std::string& strArchive) {
    if (FileExists(strArchive)) {
        DeleteFileA(strArchive.c_str());
    }
}

}  // namespace

int AddToArchive(ZipArchive* pArchive, const std::string& strSource, const std::string& strNameInArchive,
                 unsigned& uLastZipError) {
    if (pArchive == nullptr || !FileExists(strSource)) {
        return 0;
    }
    if (!ZipWriter::IsWriting(pArchive)) {
        uLastZipError = ZipWrongMode;
        return 0;
    }
    const int nAdded = ZipWriter::AddFile(pArchive, strSource, strNameInArchive);
    uLastZipError = ZipWriter::LastResult();
    return nAdded;
}

int CreateZipFile(const std::string& strReportFile, const CrashReporter& Report, const std::string& strArchive) {
    int nResult = 0;
    int nRetCode = 0;
    unsigned uLastZipError = ZipOk;
    ZipArchiveHandle hZip(ZipWriter::CreateArchive(strArchive));

    ZTLOG_PROCESS_ERROR(hZip);

    nRetCode = AddToArchive(hZip.Get(), strReportFile, REPORT_NAME, uLastZipError);
    ZTLOG_CHECK_ERROR(nRetCode);

    nRetCode = AddToArchive(hZip.Get(), Report.Exception.DumpFileName, FileNameOf(Report.Exception.DumpFileName),
                            uLastZipError);
    ZTLOG_CHECK_ERROR(nRetCode);

    for (const std::string& strCustomFile : Report.CustomFiles) {
        nRetCode = AddToArchive(hZip.Get(), strCustomFile, FileNameOf(strCustomFile), uLastZipError);
        ZTLOG_CHECK_ERROR(nRetCode);
    }

    nResult = 1;
Exit0:
    return nResult;
}

int SendDumpFile(Collection* pCollection, const Config& Settings, const std::string& strFeedback) {
    int nResult = 0;
    int nRetCode = 0;
    std::string strArchive;
    const Undo Deletion([&] { DeleteArchive(strArchive); });

    nRetCode = UnlessOutOfMemory([&] {
        strArchive = FullPath(Format(NAME_SIZE, "Crash_%d.zip", static_cast<int>(GetCurrentProcessId())));
        return CreateZipFile(Settings.m_strCrashReportFile, pCollection->m_CrashReporter, strArchive);
    });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode = UnlessOutOfMemory([&] { return PostArchive(*pCollection, Settings, strArchive, strFeedback); });
    ZTLOG_CHECK_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
