// Writes one zip archive: create it, add files from disk one by one, close it.
//
// The caller owns the handle until Close, which frees it. Paths and names are narrow text in the system's ANSI code
// page. Nothing here logs or throws; each operation leaves its result as the last result of the process. One thread.
//
// A file is refused with ZipNoFile before anything of it is written when it cannot be opened, is no file on a disk
// (NUL, a pipe), has 4 GiB or more, or when it does not fit: the whole archive stays below 4 GiB and has at most 65535
// entries. How far a file shrinks shows only while it is compressed; one that turns out not to fit is taken back.
//
// After ZipWriteError, ZipSizeMismatch and ZipSeekError every further add returns ZipFailedBefore; Close still writes
// the directory of what was added before. After any other failure the next add goes on.
#pragma once

#include <string>

#include "zip/ZipResult.h"

namespace crashvane {

struct ZipArchive;

namespace ZipWriter {

// Replaces an existing file; nobody else can open it until Close. nullptr: last result ZipNoFile.
ZipArchive* CreateArchive(const std::string& strPath);

// 1: added. 0: not added, the last result says why. A null handle, or a source that does not exist or is a folder,
// returns 0 and leaves the last result alone. The name is at most 259 bytes; backslashes become "/".
int AddFile(ZipArchive* pArchive, const std::string& strSource, const std::string& strNameInArchive);

// Added under the source's own file name.
int AddFile(ZipArchive* pArchive, const std::string& strSource);

// Writes the directory, closes the file and frees the handle; ZipOk or ZipWriteError. A null handle is ZipBadArgs.
// A handle of another kind is ZipWrongMode and is left alone.
unsigned Close(ZipArchive* pArchive);

unsigned LastResult();

// The handle is one of an archive being written.
bool IsWriting(const ZipArchive* pArchive);

}  // namespace ZipWriter
}  // namespace crashvane
