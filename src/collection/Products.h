// The products beside the flagship, as a table of differences: what a class does not name it takes from Collection.
//
// Adding one: docs/adding-a-product.md.
#pragma once

#include <string>

#include "collection/Collection.h"

namespace crashvane {

// Any key that nobody knows; its own is never tested.
class DefaultCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "QRL";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
};

// The five with a plain "version.cfg": version without suffix, version ex from a key of the class's own.
class EditorCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "EDITOR";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

class ToolCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "TOOL";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

class IvorelGameClientCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "IVORELGAMECLIENT";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

class MendwellCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "MENDWELL";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectLog() override;  // "logs\Mendwell"
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

class DovekCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "DOVEK";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

// The three with a section named after the executable: "<major>.<minor>".
class CymraCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "CYMRA";
    int GetProjectImgId() override { return 136; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

class EssarnCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "ESSARN";
    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

class OrvelCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "ORVEL";
    int GetProjectImgId() override;  // by edition
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

// Each of the rest keeps its version in a way of its own.
class TalisCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "TALIS";
    int GetProjectImgId() override { return 154; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

class XXCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "XX";
    int GetProjectImgId() override { return 153; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

class HeskCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "HESK";
    int GetProjectImgId() override { return 144; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectVersion() override;
};

class FyrnCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "FYRN";
    int GetProjectImgId() override { return 131; }
    const std::string& GetProjectName() override { return ProjectKey; }
    int CollectLoginInfo() override;
    int CollectVersion() override;

  private:
    std::string GetVersionExA();
};

class GaldorCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "GALDOR";
    int GetProjectImgId() override { return 132; }
    const std::string& GetProjectName() override { return ProjectKey; }
    bool IsForceSend() override { return true; }
    int CollectConfigFile() override;
    int CollectLog() override;  // "logs" and "log"
    int CollectLoginInfo() override;
};

}  // namespace crashvane
