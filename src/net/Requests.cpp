#include "net/Requests.h"

#include <cstddef>
#include <cstdlib>

#include "net/FormPostClient.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace crashvane {
namespace {

template <typename Record>
struct Field {
    const wchar_t* pszName;
    std::string Record::*pValue;
};

constexpr const wchar_t* PROJECT = L"project";
constexpr const wchar_t* DUMP_KEY = L"dump_key";
constexpr const wchar_t* FILE_NAME = L"filename";
constexpr const wchar_t* FILE_PART = L"File";

constexpr Field<ActiveMachineInfo> ACTIVE_MACHINE_FIELDS[] = {
    {L"uuid", &ActiveMachineInfo::uuid},
    {L"newuuid", &ActiveMachineInfo::newuuid},
    {L"ver", &ActiveMachineInfo::ver},
    {L"verex", &ActiveMachineInfo::verex},
    {L"threadtype", &ActiveMachineInfo::threadtype},
    {L"bittype", &ActiveMachineInfo::bittype},
    {L"videocard", &ActiveMachineInfo::videocard},
    {L"totalphysmem", &ActiveMachineInfo::totalphysmem},
    {L"cpubrand", &ActiveMachineInfo::cpubrand},
};

constexpr Field<SessionInfo> SESSION_FIELDS[] = {
    {L"clientname", &SessionInfo::clientname}, {L"uuid", &SessionInfo::uuid},
    {L"newuuid", &SessionInfo::newuuid},       {L"ver", &SessionInfo::ver},
    {L"verex", &SessionInfo::verex},
};

constexpr Field<DumpInfo> DUMP_INFO_FIELDS[] = {
    {L"guid", &DumpInfo::guid},
    {L"key", &DumpInfo::key},
    {L"uuid", &DumpInfo::uuid},
    {L"newuuid", &DumpInfo::newuuid},
    {L"clientname", &DumpInfo::clientname},
    {L"exceptionmodule", &DumpInfo::exceptionmodule},
    {L"ver", &DumpInfo::ver},
    {L"verex", &DumpInfo::verex},
    {L"threadtype", &DumpInfo::threadtype},
    {L"bittype", &DumpInfo::bittype},
    {L"timetofailure", &DumpInfo::timetofailure},
    {L"account", &DumpInfo::account},
    {L"rolename", &DumpInfo::rolename},
    {L"regionname", &DumpInfo::regionname},
    {L"servername", &DumpInfo::servername},
    {L"videocard", &DumpInfo::videocard},
    {L"driver", &DumpInfo::driver},
    {L"driverversion", &DumpInfo::driverversion},
    {L"videocardfreemem", &DumpInfo::videocardfreemem},
    {L"videocardmem", &DumpInfo::videocardmem},
    {L"physfreemem", &DumpInfo::physfreemem},
    {L"totalphysmem", &DumpInfo::totalphysmem},
    {L"cpubrand", &DumpInfo::cpubrand},
    {L"os", &DumpInfo::os},
    {L"custominfo", &DumpInfo::custominfo},
    {L"ProcessName", &DumpInfo::ProcessName},
    {L"ProcessInstance", &DumpInfo::ProcessInstance},
    {L"PageFileAvai", &DumpInfo::PageFileAvai},
    {L"PageFileTotal", &DumpInfo::PageFileTotal},
    {L"ProcessPhysicsMemUsed", &DumpInfo::ProcessPhysicsMemUsed},
    {L"ProcessPagefileUsed", &DumpInfo::ProcessPagefileUsed},
    {L"ProcessPhysicsMemPeak", &DumpInfo::ProcessPhysicsMemPeak},
    {L"ProcessPagefilePeak", &DumpInfo::ProcessPagefilePeak},
};

constexpr Field<DumpFileInfo> DUMP_FILE_FIELDS[] = {
    {L"key", &DumpFileInfo::key},
    {L"guid", &DumpFileInfo::guid},
    {L"remark", &DumpFileInfo::remark},
};

ParameterMap MakeForm(const std::string& strProject) {
    return {{PROJECT, ToUtf16(strProject)}};
}

template <typename Record, std::size_t Count>
ParameterMap MakeForm(const std::string& strProject, const Field<Record> (&Fields)[Count], const Record& Info) {
    ParameterMap Form = MakeForm(strProject);
    for (const Field<Record>& Field : Fields) {
        Form[Field.pszName] = ToUtf16(Info.*Field.pValue);
    }
    return Form;
}

int PostForm(const std::string& strUrl, const ParameterMap& Form, const std::string& strFile,
             const wchar_t* pszFilePart, std::wstring& strAnswer) {
    int nStatus = 0;
    return FormPostClient::Post(ToUtf16(strUrl), Form, ToUtf16(strFile), pszFilePart, nullptr, &strAnswer, &nStatus)
               ? 1
               : 0;
}

// What the server answers does not matter to most requests.
int PostForm(const std::string& strUrl, const ParameterMap& Form) {
    std::wstring strAnswer;
    return PostForm(strUrl, Form, std::string(), L"", strAnswer);
}

}  // namespace

int PostActiveMachine(const std::string& strUrl, const std::string& strProject, const ActiveMachineInfo& Info) {
    return PostForm(strUrl, MakeForm(strProject, ACTIVE_MACHINE_FIELDS, Info));
}

int PostSession(const std::string& strUrl, const std::string& strProject, const SessionInfo& Info) {
    return PostForm(strUrl, MakeForm(strProject, SESSION_FIELDS, Info));
}

int PostDumpInfo(const std::string& strUrl, const std::string& strProject, const DumpInfo& Info) {
    return PostForm(strUrl, MakeForm(strProject, DUMP_INFO_FIELDS, Info));
}

int PostDumpSolution(const std::string& strUrl, const std::string& strProject, const std::string& strDumpKey,
                     int& nCrashType) {
    std::wstring strAnswer;
    ParameterMap Form;
    nCrashType = 0;
    Form = MakeForm(strProject);
    Form[DUMP_KEY] = ToUtf16(strDumpKey);
    const int nResult = PostForm(strUrl, Form, std::string(), L"", strAnswer);
    nCrashType = _wtoi(strAnswer.c_str());
    return nResult;
}

int PostDumpFile(const std::string& strUrl, const std::string& strProject, const DumpFileInfo& Info) {
    std::wstring strAnswer;
    ParameterMap Form = MakeForm(strProject, DUMP_FILE_FIELDS, Info);
    Form[FILE_NAME] = ToUtf16(FileNameOf(Info.file));
    return PostForm(strUrl, Form, Info.file, FILE_PART, strAnswer);
}

}  // namespace crashvane
