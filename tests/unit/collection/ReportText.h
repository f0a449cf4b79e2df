// A crash report file as the crashing client leaves it and as it must be saved: written by hand, byte for byte.
#pragma once

#include <string>
#include <vector>

namespace crashvane::test {

// What collectors read and change; the rest of the report is the same in every test.
struct ReportValues {
    std::string strProject = "OLD";
    std::string strProductName = "some.exe";
    std::string strVersion = "version of the report";
    std::string strVersionEx = "version ex of the report";
    std::string strThreadType = "thread type of the report";
    std::string strBitType = "x86";
    std::vector<std::string> CustomFiles;
    std::vector<std::string> CustomInfos;
};

inline std::string CustomText(const ReportValues& Values) {
    if (Values.CustomFiles.empty() && Values.CustomInfos.empty()) {
        return "    <Custom />\r\n";
    }
    std::string strText = "    <Custom>\r\n";
    for (const std::string& strFile : Values.CustomFiles) {
        strText += "        <CustomFile>" + strFile + "</CustomFile>\r\n";
    }
    for (const std::string& strInfo : Values.CustomInfos) {
        strText += "        <CustomInfo>" + strInfo + "</CustomInfo>\r\n";
    }
    return strText + "    </Custom>\r\n";
}

inline std::string ReportText(const ReportValues& Values) {
    return "<?xml version=\"1.0\" encoding=\"gb2312\" ?>\r\n"
           "<CrashReporter Project=\"" +
           Values.strProject +
           "\">\r\n"
           "    <Exception>\r\n"
           "        <ExceptionModuleName>engine.dll</ExceptionModuleName>\r\n"
           "        <ExceptionCode>0xc0000005</ExceptionCode>\r\n"
           "        <ExceptionDescription>reading 0x10</ExceptionDescription>\r\n"
           "        <ExceptionAddress>0X00007FF6A1B20000</ExceptionAddress>\r\n"
           "        <DumpFileName>crash.dmp</DumpFileName>\r\n"
           "        <DumpKey>ab12</DumpKey>\r\n"
           "        <DumpGuid>{6F9619FF}</DumpGuid>\r\n"
           "        <ExceptionTime>1567130000</ExceptionTime>\r\n"
           "        <TimeToFailure>95</TimeToFailure>\r\n"
           "        <ProcessName>TheProcess.exe</ProcessName>\r\n"
           "        <ProcessInstance>4</ProcessInstance>\r\n"
           "        <ProcessMemUsed PagefileUsage=\"1\" WorkingSetSize=\"2\" />\r\n"
           "        <ProcessMemPeak PagefileUsage=\"3\" WorkingSetSize=\"4\" />\r\n"
           "    </Exception>\r\n"
           "    <Product>\r\n"
           "        <ProductName>" +
           Values.strProductName +
           "</ProductName>\r\n"
           "        <ProductVersion>" +
           Values.strVersion +
           "</ProductVersion>\r\n"
           "        <ProductVersionEx>" +
           Values.strVersionEx +
           "</ProductVersionEx>\r\n"
           "        <ProductThreadType>" +
           Values.strThreadType +
           "</ProductThreadType>\r\n"
           "        <ProductBitType>" +
           Values.strBitType +
           "</ProductBitType>\r\n"
           "    </Product>\r\n"
           "    <Machine>\r\n"
           "        <IP>192.168.1.7</IP>\r\n"
           "        <UUID>u</UUID>\r\n"
           "        <NewUUID>n</NewUUID>\r\n"
           "        <OS>Windows</OS>\r\n"
           "        <Processor>CPU</Processor>\r\n"
           "        <PhysMemory TotalMemory=\"5\" AvailMemory=\"6\" />\r\n"
           "        <Pagefile TotalMemory=\"7\" AvailMemory=\"8\" />\r\n"
           "        <VideoCardInfo>\r\n"
           "            <VideoCardDescription>Card</VideoCardDescription>\r\n"
           "            <VideoCardDriver>card.sys</VideoCardDriver>\r\n"
           "            <VideoDriverVersion>31.0</VideoDriverVersion>\r\n"
           "            <VideoCardMemory TotalMemory=\"9\" AvailMemory=\"10\" />\r\n"
           "        </VideoCardInfo>\r\n"
           "    </Machine>\r\n"
           "    <Modules>\r\n"
           "        <Module FullPath=\"C:\\Game\\engine.dll\" BaseOfImage=\"0x10000000\" SizeOfImage=\"0x1000\""
           " TimeDateStamp=\"1567000000\" FileVersion=\"1.0.0.5\" ProductVersion=\"1.0\" />\r\n"
           "    </Modules>\r\n" +
           CustomText(Values) + "</CrashReporter>\r\n";
}

}  // namespace crashvane::test
