#include "zip/ArchiveWalk.h"

#include <zlib.h>

#include <stdexcept>

namespace crashvane::test {
namespace {

// Reads numbers and texts one after the other; throws what is wrong.
class Reader {
  public:
    Reader(const std::string& strBytes, std::size_t uAt) : m_strBytes(strBytes), m_uAt(uAt) {}

    std::string Text(std::size_t uSize) {
        if (m_uAt > m_strBytes.size() || m_strBytes.size() - m_uAt < uSize) {
            throw std::runtime_error("record reaches behind the end of the file");
        }
        m_uAt += uSize;
        return m_strBytes.substr(m_uAt - uSize, uSize);
    }
    std::uint32_t Value(unsigned uWidth) {
        std::uint32_t uResult = 0;
        unsigned uShift = 0;
        for (const char cByte : Text(uWidth)) {
            uResult |= static_cast<std::uint32_t>(static_cast<unsigned char>(cByte)) << uShift;
            uShift += 8;
        }
        return uResult;
    }
    void Expect(unsigned uWidth, std::uint32_t uExpected, const char* pszWhat) {
        const std::uint32_t uFound = Value(uWidth);
        if (uFound != uExpected) {
            throw std::runtime_error(std::string(pszWhat) + " is " + std::to_string(uFound) + ", not " +
                                     std::to_string(uExpected));
        }
    }
    [[nodiscard]] std::size_t At() const { return m_uAt; }

  private:
    const std::string& m_strBytes;
    std::size_t m_uAt;
};

std::string Inflate(const std::string& strRaw, std::uint32_t uSize) {
    std::string strResult(uSize + 1U, '\0');
    z_stream Engine = {};
    inflateInit2(&Engine, -15);
    Engine.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(strRaw.data()));
    Engine.avail_in = static_cast<uInt>(strRaw.size());
    Engine.next_out = reinterpret_cast<Bytef*>(strResult.data());
    Engine.avail_out = static_cast<uInt>(strResult.size());
    const int nState = inflate(&Engine, Z_FINISH);
    const bool bWhole = nState == Z_STREAM_END && Engine.avail_in == 0 && Engine.total_out == uSize;
    inflateEnd(&Engine);
    if (!bWhole) {
        throw std::runtime_error("deflated data does not end where it should");
    }
    strResult.resize(uSize);
    return strResult;
}

WalkedEntry ReadCentral(Reader& Central, std::uint32_t uFlags) {
    WalkedEntry Entry;
    Central.Expect(4, 0x02014B50, "central signature");
    Central.Expect(2, 0x0B17, "version made by");
    Central.Expect(2, 20, "version needed");
    Central.Expect(2, uFlags, "central flags");
    Entry.uFlags = uFlags;
    Entry.uMethod = Central.Value(2);
    Entry.uTime = Central.Value(2);
    Entry.uDate = Central.Value(2);
    Entry.uCrc = Central.Value(4);
    Entry.uCompressedSize = Central.Value(4);
    Entry.uUncompressedSize = Central.Value(4);
    const std::uint32_t uNameLength = Central.Value(2);
    Central.Expect(2, 9, "length of the central extra field");
    Central.Expect(2, 0, "length of the comment");
    Central.Expect(2, 0, "disk of the entry");
    Entry.uInternal = Central.Value(2);
    Entry.uExternal = Central.Value(4);
    Entry.uOffset = Central.Value(4);
    Entry.strName = Central.Text(uNameLength);
    Entry.strCentralExtra = Central.Text(9);
    return Entry;
}

// Returns where the entry ends.
std::size_t ReadLocal(const std::string& strArchive, WalkedEntry& Entry) {
    Reader Local(strArchive, Entry.uOffset);
    const bool bSizesFollow = (Entry.uFlags & 8) != 0;
    Local.Expect(4, 0x04034B50, "local signature");
    Local.Expect(2, 20, "version needed");
    Local.Expect(2, Entry.uFlags, "local flags");
    Local.Expect(2, Entry.uMethod, "local method");
    Local.Expect(2, Entry.uTime, "local time");
    Local.Expect(2, Entry.uDate, "local date");
    Local.Expect(4, bSizesFollow ? 0 : Entry.uCrc, "local CRC");
    Local.Expect(4, bSizesFollow && Entry.uMethod == 8 ? 0 : Entry.uCompressedSize, "local compressed size");
    Local.Expect(4, Entry.uUncompressedSize, "local size");
    Local.Expect(2, static_cast<std::uint32_t>(Entry.strName.size()), "length of the local name");
    Local.Expect(2, 17, "length of the local extra field");
    if (Local.Text(Entry.strName.size()) != Entry.strName) {
        throw std::runtime_error("local name differs");
    }
    Entry.strLocalExtra = Local.Text(17);
    const std::string strRaw = Local.Text(Entry.uCompressedSize);
    Entry.strContent = Entry.uMethod == 8 ? Inflate(strRaw, Entry.uUncompressedSize) : strRaw;
    if (Entry.strContent.size() != Entry.uUncompressedSize || SlowCrc(Entry.strContent) != Entry.uCrc) {
        throw std::runtime_error("size or CRC of " + Entry.strName + " is not true");
    }
    if (bSizesFollow) {
        Local.Expect(4, 0x08074B50, "descriptor signature");
        Local.Expect(4, Entry.uCrc, "descriptor CRC");
        Local.Expect(4, Entry.uCompressedSize, "descriptor compressed size");
        Local.Expect(4, Entry.uUncompressedSize, "descriptor size");
    }
    return Local.At();
}

void WalkAll(const std::string& strArchive, std::uint32_t uFlags, Walk& Result) {
    Reader End(strArchive, strArchive.size() < 22 ? strArchive.size() : strArchive.size() - 22);
    End.Expect(4, 0x06054B50, "end signature");
    End.Expect(2, 0, "number of the disk");
    End.Expect(2, 0, "disk of the directory");
    const std::uint32_t uEntries = End.Value(2);
    End.Expect(2, uEntries, "entries in total");
    const std::uint32_t uSize = End.Value(4);
    const std::uint32_t uOffset = End.Value(4);
    End.Expect(2, 0, "length of the archive's comment");

    Reader Central(strArchive, uOffset);
    std::size_t uBehind = 0;  // the last entry
    for (std::uint32_t uEntry = 0; uEntry < uEntries; ++uEntry) {
        WalkedEntry Entry = ReadCentral(Central, uFlags);
        if (Entry.uOffset < uBehind) {
            throw std::runtime_error("entries overlap");
        }
        Result.uGaps += static_cast<std::uint32_t>(Entry.uOffset - uBehind);
        uBehind = ReadLocal(strArchive, Entry);
        Result.Entries.push_back(Entry);
    }
    if (uBehind > uOffset || Central.At() != uOffset + uSize || Central.At() + 22 != strArchive.size()) {
        throw std::runtime_error("the directory does not lie between entries and end");
    }
    Result.uGaps += static_cast<std::uint32_t>(uOffset - uBehind);
}

}  // namespace

Walk WalkArchive(const std::string& strArchive, std::uint32_t uFlags) {
    Walk Result;
    try {
        WalkAll(strArchive, uFlags, Result);
    } catch (const std::exception& Complaint) {
        Result.strComplaint = Complaint.what();
    }
    return Result;
}

std::uint32_t SlowCrc(const std::string& strBytes) {
    std::uint32_t uCrc = 0xFFFFFFFF;
    for (const char cByte : strBytes) {
        uCrc ^= static_cast<unsigned char>(cByte);
        for (int nBit = 0; nBit < 8; ++nBit) {
            uCrc = (uCrc >> 1) ^ ((uCrc & 1) != 0 ? 0xEDB88320 : 0);
        }
    }
    return ~uCrc;
}

std::string FromHex(const std::string& strHex) {
    std::string strResult;
    std::string strDigits;
    bool bQuoted = false;
    for (const char cNext : strHex) {
        if (cNext == '"') {
            bQuoted = !bQuoted;
        } else if (bQuoted) {
            strResult += cNext;
        } else if (std::isxdigit(static_cast<unsigned char>(cNext)) != 0) {
            strDigits += cNext;
            if (strDigits.size() == 2) {
                strResult += static_cast<char>(std::stoi(strDigits, nullptr, 16));
                strDigits.clear();
            }
        }
    }
    return strResult;
}

std::string Number(std::uint32_t uValue, unsigned uWidth) {
    std::string strResult;
    for (unsigned uByte = 0; uByte < uWidth; ++uByte) {
        strResult += static_cast<char>(uValue >> (8 * uByte));
    }
    return strResult;
}

}  // namespace crashvane::test
