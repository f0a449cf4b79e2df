// Which of many files belongs to a crash: the one written nearest to it in time.
//
// The choice is a function of paths and times alone; nothing but the best so far is kept, so a folder of any size costs
// the same memory. Times are seconds since 1970-01-01 00:00 UTC.
#pragma once

#include <windows.h>

#include <string>

namespace crashvane {

class NearestFile {
  public:
    // How far before or after the moment a file may have been written; exactly as far is near enough.
    static constexpr unsigned long long Reach = 3600;

    explicit NearestFile(long long nMoment) : m_nMoment(nMoment) {}

    // Takes the file when it is within reach and nearer than all that were offered before: of two that are equally
    // near, the first stays.
    void Offer(const std::string& strPath, long long nWritten);

    // The choice; empty when nothing within reach was offered.
    [[nodiscard]] const std::string& Path() const { return m_strPath; }

  private:
    long long m_nMoment = 0;
    unsigned long long m_uNearest = Reach + 1;
    std::string m_strPath;
};

// Whole seconds of a file time. A file system that keeps no such time says 0, and so does this.
long long SecondsSince1970(const FILETIME& Time);

// The nearest file that matches in the folder and its immediate subfolders, in the order of VisitFiles. Empty when
// there is none, the folder cannot be searched or its path is empty (too long to be joined).
std::string FindNearestFile(const std::string& strFolder, const std::string& strPattern, long long nMoment);

}  // namespace crashvane
