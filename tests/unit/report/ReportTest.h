// What the tests of reports share: a report written out by hand, a file of its own for each test, and the log.
#pragma once

#include <gmock/gmock.h>
#include <tinyxml.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "report/CrashReporter.h"
#include "support/LogCapture.h"

namespace crashvane {

// A complete report as a client may write it, every value different from every other.
inline const char SampleReport[] = R"(<?xml version="1.0" encoding="gb2312" ?>
<CrashReporter Project="QRL">
    <Exception>
        <ExceptionModuleName>engine.dll</ExceptionModuleName>
        <ExceptionCode>0xc0000005</ExceptionCode>
        <ExceptionDescription>Access violation</ExceptionDescription>
        <ExceptionAddress>0X00007FF6A1B20000</ExceptionAddress>
        <DumpFileName>C:\Game\crash.dmp</DumpFileName>
        <DumpKey>ab12cd34</DumpKey>
        <DumpGuid>{6F9619FF-8B86-D011-B42D-00CF4FC964FF}</DumpGuid>
        <ExceptionTime>1567130000</ExceptionTime>
        <TimeToFailure>125</TimeToFailure>
        <ProcessName>Client.exe</ProcessName>
        <ProcessInstance>4</ProcessInstance>
        <ProcessMemUsed PagefileUsage="701" WorkingSetSize="601" />
        <ProcessMemPeak PagefileUsage="901" WorkingSetSize="801" />
    </Exception>
    <Product>
        <ProductName>Client</ProductName>
        <ProductVersion>1.0.0.5</ProductVersion>
        <ProductVersionEx>zhcn_hd</ProductVersionEx>
        <ProductThreadType>MT</ProductThreadType>
        <ProductBitType>x64</ProductBitType>
    </Product>
    <Machine>
        <IP>192.168.1.7</IP>
        <UUID>4C4C4544</UUID>
        <NewUUID>4C4C4545</NewUUID>
        <OS>Windows 10</OS>
        <Processor>CPU @ 3.60GHz</Processor>
        <PhysMemory TotalMemory="16001" AvailMemory="4001" />
        <Pagefile TotalMemory="20001" AvailMemory="5001" />
        <VideoCardInfo>
            <VideoCardDescription>Graphics 8</VideoCardDescription>
            <VideoCardDriver>graphics.sys</VideoCardDriver>
            <VideoDriverVersion>31.0.15</VideoDriverVersion>
            <VideoCardMemory TotalMemory="8001" AvailMemory="6001" />
        </VideoCardInfo>
    </Machine>
    <Modules>
        <Module FullPath="C:\Game\a.dll" BaseOfImage="0x10000000" SizeOfImage="0x1000" TimeDateStamp="1567000001" FileVersion="1.1" ProductVersion="2.1" />
        <Module FullPath="C:\Game\b.dll" BaseOfImage="0x7ff6a1b20000" SizeOfImage="0x2000" TimeDateStamp="1567000002" FileVersion="1.2" ProductVersion="2.2" />
    </Modules>
    <Custom>
        <CustomFile>C:\Game\logs\first.log</CustomFile>
        <CustomFile>C:\Game\logs\second.log</CustomFile>
        <CustomInfo>one line</CustomInfo>
    </Custom>
</CrashReporter>
)";

// strText with its one occurrence of strFrom exchanged.
inline std::string Replaced(std::string strText, const std::string& strFrom, const std::string& strTo) {
    const std::string::size_type uAt = strText.find(strFrom);
    EXPECT_NE(uAt, std::string::npos) << strFrom;
    EXPECT_EQ(strText.find(strFrom, uAt + 1), std::string::npos) << strFrom << " stands there twice";
    return uAt == std::string::npos ? strText : strText.replace(uAt, strFrom.size(), strTo);
}

class ReportTest : public testing::Test {
  protected:
    ReportTest() {
        static unsigned s_uCount = 0;
        char szTemp[MAX_PATH + 1] = {};
        GetTempPathA(static_cast<DWORD>(sizeof(szTemp)), szTemp);
        m_strFile = std::string(szTemp) + "crashvane_report_" + std::to_string(GetCurrentProcessId()) + "_" +
                    std::to_string(s_uCount++) + ".xml";
        // As at the start of a process; a save switches it off.
        TiXmlBase::SetCondenseWhiteSpace(true);
    }
    ~ReportTest() override {
        TiXmlBase::SetCondenseWhiteSpace(true);
        DeleteFileA(m_strFile.c_str());
    }

    void Write(const std::string& strBytes) const {
        std::ofstream Stream(m_strFile, std::ios::binary);
        Stream.write(strBytes.data(), static_cast<std::streamsize>(strBytes.size()));
    }

    [[nodiscard]] std::string Bytes() const {
        std::ifstream Stream(m_strFile, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
    }

    int LoadText(const std::string& strText) {
        Write(strText);
        return m_Report.Load(m_strFile);
    }

    // The failed checks since the beginning, as "ZTLOG_PROCESS_ERROR(pElement) in Memory::LoadMemory".
    [[nodiscard]] std::vector<std::string> Checks() const {
        static const std::regex Line(" at line [1-9][0-9]* in ");
        std::vector<std::string> Result = m_Log.Lines();
        for (std::string& strLine : Result) {
            strLine = std::regex_replace(strLine, Line, " in ");
        }
        return Result;
    }

    LogCapture m_Log;
    CrashReporter m_Report;
    std::string m_strFile;
};

// A record's element with its parent, parsed from text.
class Parsed {
  public:
    explicit Parsed(const std::string& strText) {
        m_Document.Parse(("<Parent>" + strText + "</Parent>").c_str(), nullptr, TIXML_ENCODING_LEGACY);
        EXPECT_FALSE(m_Document.Error()) << strText;
    }
    [[nodiscard]] TiXmlElement* Parent() { return m_Document.RootElement(); }
    [[nodiscard]] TiXmlElement* First() { return Parent()->FirstChildElement(); }

  private:
    TiXmlDocument m_Document;
};

// What a save added to a parent, in one line.
class Saved {
  public:
    Saved() : m_Parent("Parent") {}
    [[nodiscard]] TiXmlElement* Parent() { return &m_Parent; }
    [[nodiscard]] std::string Text() const {
        TiXmlPrinter Printer;
        Printer.SetStreamPrinting();
        m_Parent.Accept(&Printer);
        return Printer.CStr();
    }

  private:
    TiXmlElement m_Parent;
};

}  // namespace crashvane
