#include "net/RequestRecords.h"

#include "util/Text.h"

namespace crashvane {
namespace {

constexpr std::size_t NUMBER_SIZE = 40;
constexpr long long SECONDS_A_MINUTE = 60;

std::string InMebibytes(unsigned long long uBytes) {
    return Format(NUMBER_SIZE, "%I64u", uBytes >> 20);
}

std::string AsInteger(int nValue) {
    return Format(NUMBER_SIZE, "%d", nValue);
}

void FillProduct(DumpInfo& Info, const Product& Product) {
    Info.clientname = Product.ProductName;
    Info.ver = Product.ProductVersion;
    Info.verex = Product.ProductVersionEx;
    Info.threadtype = Product.ProductThreadType;
    Info.bittype = Product.ProductBitType;
}

void FillException(DumpInfo& Info, const Exception& Exception) {
    Info.guid = Exception.DumpGuid;
    Info.key = Exception.DumpKey;
    Info.exceptionmodule = Exception.ExceptionModuleName;
    Info.ProcessName = Exception.ProcessName;
    Info.ProcessInstance = AsInteger(static_cast<int>(Exception.ProcessInstance));
    Info.timetofailure = AsInteger(static_cast<int>(Exception.TimeToFailure / SECONDS_A_MINUTE));
    Info.ProcessPhysicsMemUsed = InMebibytes(Exception.ProcessMemUsed.WorkingSetSize);
    Info.ProcessPagefileUsed = InMebibytes(Exception.ProcessMemUsed.PagefileUsage);
    Info.ProcessPhysicsMemPeak = InMebibytes(Exception.ProcessMemPeak.WorkingSetSize);
    Info.ProcessPagefilePeak = InMebibytes(Exception.ProcessMemPeak.PagefileUsage);
}

void FillMachine(DumpInfo& Info, const Machine& Machine) {
    Info.uuid = Machine.UUID;
    Info.newuuid = Machine.NewUUID;
    Info.videocard = Machine.VideoCardInfo.VideoCardDescription;
    Info.driver = Machine.VideoCardInfo.VideoCardDriver;
    Info.driverversion = Machine.VideoCardInfo.VideoDriverVersion;
    Info.videocardfreemem = InMebibytes(Machine.VideoCardInfo.VideoCardMemory.AvailMemory);
    Info.videocardmem = InMebibytes(Machine.VideoCardInfo.VideoCardMemory.TotalMemory);
    Info.physfreemem = InMebibytes(Machine.PhysMemory.AvailMemory);
    Info.totalphysmem = InMebibytes(Machine.PhysMemory.TotalMemory);
    Info.PageFileAvai = InMebibytes(Machine.Pagefile.AvailMemory);
    Info.PageFileTotal = InMebibytes(Machine.Pagefile.TotalMemory);
    Info.cpubrand = Machine.Processor;
    Info.os = Machine.OS;
}

}  // namespace

int FillActiveMachineInfo(ActiveMachineInfo* pInfo, const CrashReporter& Report) {
    if (pInfo == nullptr) {
        return 0;
    }
    pInfo->uuid = Report.Machine.UUID;
    pInfo->newuuid = Report.Machine.NewUUID;
    pInfo->ver = Report.Product.ProductVersion;
    pInfo->verex = Report.Product.ProductVersionEx;
    pInfo->threadtype = Report.Product.ProductThreadType;
    pInfo->bittype = Report.Product.ProductBitType;
    pInfo->videocard = Report.Machine.VideoCardInfo.VideoCardDescription;
    pInfo->cpubrand = Report.Machine.Processor;
    pInfo->totalphysmem = InMebibytes(Report.Machine.PhysMemory.TotalMemory);
    return 1;
}

int FillDumpInfo(DumpInfo* pInfo, const CrashReporter& Report) {
    if (pInfo == nullptr) {
        return 0;
    }
    FillException(*pInfo, Report.Exception);
    FillProduct(*pInfo, Report.Product);
    FillMachine(*pInfo, Report.Machine);
    pInfo->custominfo.clear();
    for (const std::string& strLine : Report.CustomInfos) {
        pInfo->custominfo += strLine;
        pInfo->custominfo += ';';
    }
    return 1;
}

int FillSessionInfo(SessionInfo* pInfo, const CrashReporter& Report) {
    if (pInfo == nullptr) {
        return 0;
    }
    pInfo->uuid = Report.Machine.UUID;
    pInfo->newuuid = Report.Machine.NewUUID;
    pInfo->ver = Report.Product.ProductVersion;
    pInfo->verex = Report.Product.ProductVersionEx;
    pInfo->clientname = Report.Product.ProductName;
    return 1;
}

}  // namespace crashvane
