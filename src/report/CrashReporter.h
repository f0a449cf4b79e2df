// The crash report: the document that the crashing client left, completed by the collectors and saved again.
//
// Owns all that it holds. The file is bytes in the system's ANSI code page; docs/report-format.md describes it. Load
// and Save answer 1 for success and 0 for failure, log every failed check innermost first, and never throw.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report/Records.h"

namespace crashvane {

struct CrashReporter {
    struct Exception Exception;
    struct Product Product;
    struct Machine Machine;
    std::vector<Module> Modules;
    std::vector<std::string> CustomFiles;  // paths of files that the dump package is to include
    std::vector<std::string> CustomInfos;  // free-form lines
    std::string Project;                   // key of the crashed product

    // Fills the document from the named file. The three lists grow: what they held before stays in front. A failure
    // leaves what was read until then. Leading and trailing white space of texts is lost, and inner runs become one
    // blank, unless something was saved before in this process.
    int Load(const std::string& strFileName);

    // Writes the whole document over the named file, and switches the white-space handling of every later Load in
    // this process. A failure while writing leaves a truncated file.
    int Save(const std::string& strFileName) const;

  private:
    using ItemLoader = std::function<int(const TiXmlElement* pItem)>;

    static int LoadVectorData(const TiXmlElement* pRoot, const char* pszList, const char* pszItem,
                              const ItemLoader& LoadItem);
    int LoadModule(const TiXmlElement* pItem);
    static int LoadStringA(const TiXmlElement* pItem, std::vector<std::string>& List);

    int SaveModules(TiXmlElement* pRoot) const;
    int SaveCustomDatas(TiXmlElement* pRoot) const;
};

}  // namespace crashvane
