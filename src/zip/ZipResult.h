// What every operation on an archive answers, and what stays of it as the last result.
#pragma once

namespace crashvane {

enum ZipResult : unsigned {
    ZipOk = 0,
    ZipNoFile = 0x200,          // archive or source could not be created, opened, examined or read, or is refused
    ZipWriteError = 0x400,      // a header or compressed data could not be written, or the compressor failed
    ZipBadArgs = 0x10000,       // no name in the archive, a name that is too long, no source
    ZipFailedBefore = 0x40000,  // an earlier add spoiled the archive
    ZipEnded = 0x50000,         // the directory is written, nothing can be added any more
    ZipSizeMismatch = 0x60000,  // stored data could not be written in full
    ZipWrongMode = 0x80000,     // the handle is not one of an archive being written
    ZipSeekError = 0x2000000,   // back to a local header, or forward again
    ZipNoChange = 0x4000000,    // method or stored size changed under an output that cannot seek
};

}  // namespace crashvane
