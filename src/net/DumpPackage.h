// The dump package: report, dump and collected files in one archive, sent to the server and deleted again.
//
// Paths are in the ANSI code page. Results are 1 and 0; what fails is logged. The archive belongs to the call that
// sends it and never outlives it.
#pragma once

#include <string>

#include "collection/Collection.h"
#include "driver/Config.h"
#include "zip/ZipWriter.h"

namespace crashvane {

// Adds one file. 0: there is no archive or no such file (uLastZipError stays), the archive is not one being written
// (ZipWrongMode), or the writer failed (its result).
int AddToArchive(ZipArchive* pArchive, const std::string& strSource, const std::string& strNameInArchive,
                 unsigned& uLastZipError);

// The report as "CrashReport.xml", then the dump and the custom files under their own names. A file that cannot be
// added is logged and left out. 0: the archive could not be created. Throws when there is no memory, with the archive
// closed.
int CreateZipFile(const std::string& strReportFile, const CrashReporter& Report, const std::string& strArchive);

// Packs into "Crash_<process id>.zip" in the current folder and sends that with the feedback text. 1: the archive was
// created, whether or not the upload succeeded (that is logged). Never throws.
int SendDumpFile(Collection* pCollection, const Config& Settings, const std::string& strFeedback);

}  // namespace crashvane
