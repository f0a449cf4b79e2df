// The log against its rules written a second time: every line's bytes, the file each goes to, the standard streams.
// Input: root and identity, a line each; flags and most lines; then lines to write, each with what happens before it.
#include <ctime>
#include <map>

#include "Fuzz.h"
#include "log/Log.h"
#include "native/World.h"

namespace {

using crashvane::LogSettings;

constexpr std::size_t LongestLine = 1023;
constexpr std::size_t LongestName = 1022;
const char* const Words[] = {"RESR0", "RESR1", "RESR2", "ERROR", "WARN ", "RESR3", "INFO ", "DEBUG"};

std::int64_t g_nNow = 0;  // seconds since 1970

std::string Printed(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));
std::string Printed(const char* pszFormat, ...) {
    char* pszText = nullptr;
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    fuzz::Require(vasprintf(&pszText, pszFormat, Arguments) >= 0, "memory for the expected text");
    va_end(Arguments);
    std::string strText = pszText;
    std::free(pszText);
    return strText;
}

std::tm Today() {
    const std::time_t nNow = g_nNow;
    std::tm Time = {};
    gmtime_r(&nNow, &Time);
    Time.tm_year += 1900;
    Time.tm_mon += 1;
    return Time;
}

// The standard streams of the C library, out of the way.
class Quiet {
  public:
    Quiet() : m_pError(stderr), m_pOutput(stdout) {
        stderr = open_memstream(&m_pszError, &m_uError);
        stdout = open_memstream(&m_pszOutput, &m_uOutput);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
        std::fclose(stderr);
        std::fclose(stdout);
        stderr = m_pError;
        stdout = m_pOutput;
        std::free(m_pszError);
        std::free(m_pszOutput);
    }
    [[nodiscard]] std::string Error() const {
        std::fflush(stderr);
        return std::string(m_pszError, m_uError);
    }
    [[nodiscard]] std::string Output() const {
        std::fflush(stdout);
        return std::string(m_pszOutput, m_uOutput);
    }

  private:
    std::FILE* m_pError;
    std::FILE* m_pOutput;
    char* m_pszError = nullptr;
    char* m_pszOutput = nullptr;
    std::size_t m_uError = 0;
    std::size_t m_uOutput = 0;
};

// What the log should do, one line after the other.
class Expected {
  public:
    // As many lines as were written to the file that is still counted.
    explicit Expected(std::int32_t nLinesBefore) : m_nLines(nLinesBefore) {}

    bool Start(std::string strRoot, std::string strIdentity, std::uint32_t uFlags, std::int32_t nMaxLines) {
        m_uFlags = uFlags;
        m_nMaxLines = nMaxLines;
        m_strIdentity = strIdentity;
        if ((uFlags & 1) == 0) {
            return true;
        }
        if (strRoot.empty() || strIdentity.empty()) {
            return false;
        }
        if (strRoot.back() == '\\') {
            strRoot.back() = '/';
        } else if (strRoot.back() != '/') {
            strRoot += '/';
        }
        if (m_strIdentity.back() == '/' || m_strIdentity.back() == '\\') {
            m_strIdentity.pop_back();
        }
        m_strRoot = strRoot;
        m_strFolder = strRoot + m_strIdentity + "/";
        return strRoot.size() < 1024 && m_strFolder.size() <= LongestName;
    }

    bool Write(int nLevel, const std::string& strMessage) {
        const std::tm Time = Today();
        std::string strLine =
            Printed("%d%02d%02d-%02d%02d%02d<%s:%016X>: ", Time.tm_year, Time.tm_mon, Time.tm_mday, Time.tm_hour,
                    Time.tm_min, Time.tm_sec, Words[nLevel & 7], native::TheWorld().dwThread) +
            strMessage;
        strLine.resize(std::min(strLine.size(), LongestLine));
        if (strLine.back() != '\n' && strLine.back() != '\r') {
            strLine.resize(std::min(strLine.size(), LongestLine - 1));
            strLine += '\n';
        }
        m_strOutput += (m_uFlags & 2) != 0 ? strLine : "";
        m_strError += (m_uFlags & 4) != 0 ? strLine : "";
        return (m_uFlags & 1) == 0 || WriteToFile(Time, strLine);
    }

    void Compare(const Quiet& Streams) const {
        const native::World& World = native::TheWorld();
        fuzz::RequireSame(World.strStandardOutput, m_strOutput, "standard output");
        fuzz::RequireSame(World.strStandardError, m_strError, "standard error");
        std::size_t uFiles = 0;
        for (const auto& [strKey, Each] : World.Files) {
            uFiles += Each.bFolder ? 0 : 1;
        }
        fuzz::Require(uFiles == m_Files.size(), "as many files as should have been opened");
        for (const auto& [strName, strBytes] : m_Files) {
            const native::File* pFile = native::FindFile(strName);
            fuzz::Require(pFile != nullptr && !pFile->bFolder, "a log file's name");
            fuzz::RequireSame(pFile->strBytes, strBytes, "a log file's lines");
        }
        fuzz::Require(Streams.Error().empty() == (m_nTroubles == 0), "troubles with folders and files are said");
        fuzz::Require(Streams.Output().empty() == (m_nFailedWrites == 0), "a failed write is said");
    }

  private:
    bool WriteToFile(const std::tm& Time, const std::string& strLine) {
        const auto nDay = std::make_tuple(Time.tm_year, Time.tm_mon, Time.tm_mday);
        if (m_bReopen || m_nLines >= m_nMaxLines || nDay != m_nDay) {
            m_nDay = nDay;
            m_bReopen = false;
            if (!Open(Time)) {
                return false;
            }
            m_nLines = 0;
        }
        if (!m_strOpen.empty()) {
            const std::uint64_t uRoom = static_cast<std::uint64_t>(m_nRoom);
            const std::size_t uTaken = std::min<std::uint64_t>(strLine.size(), uRoom);
            m_Files[m_strOpen] += strLine.substr(0, uTaken);
            m_nRoom -= static_cast<std::int64_t>(uTaken);
            m_nFailedWrites += uTaken == strLine.size() ? 0 : 1;
        }
        ++m_nLines;
        return true;
    }

    bool MakeFolder(const std::string& strFolder) {
        const bool bMade = native::FindFile(strFolder) != nullptr || !native::TheWorld().bNoFolders;
        m_nTroubles += bMade ? 0 : 1;
        return bMade;
    }

    bool Open(const std::tm& Time) {
        m_strOpen.clear();
        if (!MakeFolder(m_strRoot) || !MakeFolder(m_strFolder)) {
            return false;
        }
        std::string strDay = m_strFolder + Printed("%d_%02d_%02d/", Time.tm_year, Time.tm_mon, Time.tm_mday);
        strDay.resize(std::min(strDay.size(), LongestName));
        const bool bDay = MakeFolder(strDay);
        std::string strFile = strDay + m_strIdentity +
                              Printed("_%d_%02d_%02d_%02d_%02d_%02d.log", Time.tm_year, Time.tm_mon, Time.tm_mday,
                                      Time.tm_hour, Time.tm_min, Time.tm_sec);
        strFile.resize(std::min(strFile.size(), LongestName));
        // A name that was cut may be that of a folder.
        const native::File* pOld = native::FindFile(strFile);
        const bool bTaken = strFile == strDay || (pOld != nullptr && pOld->bFolder);
        if (!bDay || bTaken || native::TheWorld().bNoFiles) {
            ++m_nTroubles;
            return false;
        }
        m_Files[strFile].clear();
        m_strOpen = strFile;
        return true;
    }

    std::uint32_t m_uFlags = 0;
    std::int32_t m_nMaxLines = 0;
    std::string m_strRoot;
    std::string m_strIdentity;
    std::string m_strFolder;
    bool m_bReopen = true;
    std::int32_t m_nLines;
    std::tuple<int, int, int> m_nDay = {};
    std::string m_strOpen;
    std::map<std::string, std::string> m_Files;
    std::int64_t m_nRoom = native::TheWorld().nDiskRoom;
    std::string m_strOutput;
    std::string m_strError;
    int m_nTroubles = 0;
    int m_nFailedWrites = 0;
};

LogSettings MakeSettings(const std::string& strRoot, const std::string& strIdentity, unsigned uFlags, int nMaxLines) {
    LogSettings Settings = {};
    strRoot.copy(Settings.szRoot, sizeof(Settings.szRoot));
    strIdentity.copy(Settings.szIdentity, sizeof(Settings.szIdentity));
    Settings.uFlags = uFlags;
    Settings.nMaxLines = nMaxLines;
    return Settings;
}

// The count of lines is the log's own and outlives a start: one line of a file that holds many sets it to 1.
void BeginAnew() {
    native::ResetWorld();
    g_nNow = 0;
    crashvane::Log::SetClock([] { return g_nNow; });
    crashvane::Log::Start(MakeSettings("anew", "anew", 1, 1000));
    crashvane::Log::Write(6, "anew");
    crashvane::Log::Close();
    native::ResetWorld();
}

// Letters alone make names: which characters a file system takes is not the log's business.
std::string Name(const std::string& strLine, bool bFolders) {
    std::string strName = fuzz::UpToZero(strLine).substr(0, 1023);
    for (std::size_t uAt = 0; uAt < strName.size(); ++uAt) {
        const bool bSeparator = strName[uAt] == '\\' || strName[uAt] == '/';
        if (!bSeparator || (!bFolders && uAt + 1 < strName.size())) {
            strName[uAt] = static_cast<char>('a' + static_cast<unsigned char>(strName[uAt]) % 26);
        }
    }
    return strName;
}

void WriteOne(fuzz::Input& Given, Expected& Model) {
    const unsigned uWhat = Given.Byte();
    g_nNow += static_cast<std::int64_t>((uWhat & 1) != 0 ? Given.Number(3) : 0);
    native::TheWorld().bNoFolders = (uWhat & 0x70) == 0x10;
    native::TheWorld().bNoFiles = (uWhat & 0x70) == 0x20;
    native::TheWorld().dwThread = (uWhat & 0x80) != 0 ? 0xFFFFFFFF : 0x1A2C;
    const int nLevel = static_cast<int>(Given.Byte()) - 128;
    const auto nNumber = static_cast<long long>(Given.Number(2)) - 0x8000;
    std::string strMessage = Given.Line();
    if ((uWhat & 2) != 0) {
        // Longer than any input line needs to be.
        strMessage.resize(strMessage.size() + 4 * Given.Byte(), 'x');
    }
    strMessage = fuzz::UpToZero(strMessage);
    // The model looks at the world as it is before the log changes it.
    if ((uWhat & 4) != 0) {
        const std::string strText = std::to_string(nNumber) + strMessage + std::to_string(nNumber) + "%";
        const bool bExpected = Model.Write(nLevel, strText);
        fuzz::Require(crashvane::Log::Write(nLevel, "%d%s%I64d%%", static_cast<int>(nNumber), strMessage.c_str(),
                                            nNumber) == bExpected,
                      "a line with numbers is written");
    } else {
        const bool bExpected = Model.Write(nLevel, strMessage);
        fuzz::Require(crashvane::Log::Write(nLevel, "%s", strMessage.c_str()) == bExpected, "a line is written");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    fuzz::Input Given(pBytes, uSize);
    const std::string strRoot = Name(Given.Line(), true);
    const std::string strIdentity = Name(Given.Line(), false);
    const unsigned uFlags = Given.Byte();
    const int nMaxLines = static_cast<int>(Given.Byte()) - 1;
    BeginAnew();
    if (Given.Chance(4)) {
        native::TheWorld().nDiskRoom = static_cast<std::int64_t>(Given.Number(2));
    }
    {
        const Quiet Streams;
        Expected Model(1);
        const bool bStarted = Model.Start(strRoot, strIdentity, uFlags, nMaxLines);
        fuzz::Require(crashvane::Log::Start(MakeSettings(strRoot, strIdentity, uFlags, nMaxLines)) == bStarted,
                      "the log starts when the folder's name fits");
        g_nNow = 1567174509;
        while (bStarted && !Given.IsEmpty()) {
            WriteOne(Given, Model);
        }
        crashvane::Log::Close();
        Model.Compare(Streams);
    }
    crashvane::Log::Start(LogSettings{});
    crashvane::Log::SetClock(nullptr);
    return 0;
}
