// The story of one run: from the command line that a crashed game gave to the report at the server.
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <exception>

#include "collection/Registry.h"
#include "driver/Config.h"
#include "driver/Hardening.h"
#include "driver/OwnVersion.h"
#include "driver/ProcessMemory.h"
#include "driver/RepairOffer.h"
#include "driver/Restart.h"
#include "log/Check.h"
#include "net/DumpPackage.h"
#include "net/ReportSteps.h"
#include "ui/WinForm.h"
#include "ui/ZCrashRepair.h"
#include "util/Paths.h"
#include "util/Text.h"

using namespace crashvane;

namespace {

// Lines go to logs/Crashvane/ below the current folder, and to standard error for who started the program by hand.
LogSettings SettingsOfLog() {
    LogSettings Settings = {};
    std::strcpy(Settings.szRoot, "logs");
    std::strcpy(Settings.szIdentity, "Crashvane");
    Settings.uFlags = LogToFile | LogToStandardError;
    Settings.nMaxLines = 160000;
    return Settings;
}

}  // namespace

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR pszCmdLine, int) {
    int nExitCode = EXIT_FAILURE;
    int nRetCode = 0;
    bool bLogStarted = false;
    bool bConfigLoaded = false;
    bool bFormInitialised = false;
    Config CrashvaneConfig;
    Collection* pCollection = nullptr;
    ZCrashRepair CrashRepair;
    WinForm Form;

    HardenProcess();
    try {
        bLogStarted = Log::Start(SettingsOfLog());
        if (!bLogStarted) {
            return nExitCode;
        }
        Log::Write(LogDebug, "cmd\t%s\n", pszCmdLine);

        // What is to be sent, and for which product?
        CrashvaneConfig.SetDefaults();
        nRetCode = CrashvaneConfig.Init(__argc, __argv);
        ZTLOG_PROCESS_ERROR(nRetCode);
        bConfigLoaded = true;

        // The product's collector completes the report.
        pCollection = CreateCollection(CrashvaneConfig.m_strProject);
        ZTLOG_PROCESS_ERROR(pCollection);
        nRetCode = pCollection->Init(CrashvaneConfig.m_strCrashReportFile, CrashvaneConfig.m_bProjectFromCmd);
        ZTLOG_PROCESS_ERROR(nRetCode);

        // The requests log their own failures; none stops the run.
        if (CrashvaneConfig.m_bSendActiveMachine) {
            SendActiveMachine(pCollection, CrashvaneConfig);
        }
        if (CrashvaneConfig.m_bSendSession) {
            SendSession(pCollection, CrashvaneConfig);
        }
        ZTLOG_PROCESS_SUCCESS(!CrashvaneConfig.IsSendDump());

        LogOwnVersion();
        SendDumpInfo(pCollection, CrashvaneConfig);

        // The player reads, writes, and decides.
        if (!CrashvaneConfig.m_bBatchMode) {
            CrashRepair.SetSource(pCollection, &CrashvaneConfig);
            LogSolution(CrashRepair.QuerySolution());

            nRetCode = Form.Init(hInstance, pCollection->GetProjectImgId(),
                                 FullPath(pCollection->m_CrashReporter.Exception.DumpFileName), &CrashRepair);
            if (!nRetCode) {
                Form.Release();
            }
            ZTLOG_PROCESS_ERROR(nRetCode);

            bFormInitialised = true;
            nRetCode = static_cast<int>(Form.Show());
            if (nRetCode == WinFormError) {
                Log::Write(LogDebug, "WinForm Show Fail %s\n", LastErrorText().c_str());
            }
            ZTLOG_PROCESS_ERROR(nRetCode != WinFormError);
            ZTLOG_PROCESS_SUCCESS(nRetCode == WinFormCancel && !pCollection->IsForceSend());
        }

        EnumProcessMemoryInfo();
        SendDumpFile(pCollection, CrashvaneConfig, CrashvaneConfig.m_bBatchMode ? std::string() : Form.GetFeedback());

        if (!CrashvaneConfig.m_bBatchMode && CrashRepair.IsFound() && !Form.IsRepairStarted()) {
            OfferRepair(CrashRepair);
        }
    } catch (const std::exception& Error) {
        Log::Write(LogDebug, "[main] The run is given up: %s\n", Error.what());
        goto Exit0;
    }

Exit1:
    nExitCode = EXIT_SUCCESS;
Exit0:
    // Packed and sent by now, or not wanted: neither file stays.
    if (pCollection != nullptr) {
        DeleteFileA(pCollection->m_CrashReporter.Exception.DumpFileName.c_str());
    }
    DeleteFileA(CrashvaneConfig.m_strCrashReportFile.c_str());
    if (bFormInitialised) {
        if (Form.IsRestart() && !CrashvaneConfig.m_strRestartApp.empty()) {
            RestartGame(CrashvaneConfig.m_strRestartApp, CrashvaneConfig.m_strRestartCmdLine);
        }
        Form.Release();
    }
    if (bConfigLoaded) {
        CrashvaneConfig.Clear();
    }
    Log::Close();
    return nExitCode;
}
