// An argument vector as the system hands it over, the option parser at its first argument, and standard error read
// back as text.
#pragma once

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "driver/OptionParser.h"

namespace crashvane {

class Arguments {
  public:
    Arguments(std::initializer_list<std::string> Texts) : m_Texts(Texts) {
        m_Texts.insert(m_Texts.begin(), "Crashvane.exe");
        for (std::string& strText : m_Texts) {
            m_Pointers.push_back(strText.data());
        }
        m_Pointers.push_back(nullptr);
        ResetOptions();
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    [[nodiscard]] int Count() const { return static_cast<int>(m_Texts.size()); }
    char** Vector() { return m_Pointers.data(); }
    int Next(const char* pszOptions) { return NextOption(Count(), Vector(), pszOptions); }

  private:
    std::vector<std::string> m_Texts;
    std::vector<char*> m_Pointers;
};

// Standard error goes to a file while an object of this class lives.
class StandardErrorCapture {
  public:
    StandardErrorCapture() : m_nSaved(_dup(2)) {
        std::fflush(stderr);
        const int nFile = _open(FILE_NAME, _O_CREAT | _O_TRUNC | _O_WRONLY | _O_BINARY, _S_IREAD | _S_IWRITE);
        _dup2(nFile, 2);
        _close(nFile);
    }
    StandardErrorCapture(const StandardErrorCapture&) = delete;
    StandardErrorCapture& operator=(const StandardErrorCapture&) = delete;
    ~StandardErrorCapture() {
        std::fflush(stderr);
        _dup2(m_nSaved, 2);
        _close(m_nSaved);
        std::remove(FILE_NAME);
    }

    // Everything since the beginning, line ends as single line feeds.
    [[nodiscard]] std::string Text() const {
        std::fflush(stderr);
        std::ostringstream Content;
        Content << std::ifstream(FILE_NAME).rdbuf();
        return Content.str();
    }

  private:
    static constexpr const char FILE_NAME[] = "standard_error.txt";
    int m_nSaved;
};

}  // namespace crashvane
