#include "loginitems/LoginItemLists.h"

#include <filesystem>

#include <sys/stat.h>

#include "loginitems/AutostartLoginItemStore.h"
#include "loginitems/PropertyListLoginItemStore.h"

namespace quorvi::test {

namespace {

Items itemsIn(LoginItemStore& store) {
    LoginItems list;
    Items items;
    if (store.read(LoginItemAccess::Add, list) == noErr)
        for (const auto& item : list)
            items.push_back({item.path.value_or("(none)"), item.hide});
    return items;
}

class PropertyListOnDisk : public ListOnDisk {
  public:
    void seed(const Items& items) override {
        std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
                           "<key>AutoLaunchedApplicationDictionary</key><array>";
        for (const auto& item : items)
            text += "<dict><key>Hide</key>" + std::string(item.hide ? "<true/>" : "<false/>") +
                    "<key>Path</key><string>" + item.path + "</string></dict>";
        m_folder.write("loginWindow.plist", text + "</array></dict></plist>");
    }
    Items contents() override { return itemsIn(m_store); }
    LoginItemStore& store() override { return m_store; }

  private:
    PropertyListLoginItemStore m_store{m_folder.path()};
};

class AutostartFolderOnDisk : public ListOnDisk {
  public:
    void seed(const Items& items) override {
        int number = 100; // three digits keep the order of the names
        for (const auto& item : items)
            m_folder.write(std::to_string(number++) + ".desktop",
                "[Desktop Entry]\nType=Application\nName=Seeded\nExec=/bin/true\nX-KyvarQuorvi-Path=" +
                    item.path + "\nX-KyvarQuorvi-Hide=" + (item.hide ? "true" : "false") + "\n");
    }
    Items contents() override { return itemsIn(m_store); }
    LoginItemStore& store() override { return m_store; }

  private:
    AutostartLoginItemStore m_store{
        m_folder.path(), [](const std::string& application) { return application + "/Contents/Linux/Run"; }};
};

} // namespace

Items copiesOfHelper(int count) {
    Items items;
    for (int n = 1; n <= count; ++n)
        items.push_back({std::string("/").append(std::to_string(n)).append("/KyvarQuorviHelper.app")});
    return items;
}

std::map<std::string, std::pair<std::string, unsigned long>> ListOnDisk::snapshot() const {
    std::map<std::string, std::pair<std::string, unsigned long>> files;
    for (const auto& file : std::filesystem::directory_iterator(m_folder.path())) {
        struct stat info = {};
        ::stat(file.path().c_str(), &info);
        const std::string name = file.path().filename();
        files[name] = {m_folder.read(name), info.st_ino};
    }
    return files;
}

std::unique_ptr<ListOnDisk> makePropertyList() {
    return std::make_unique<PropertyListOnDisk>();
}
std::unique_ptr<ListOnDisk> makeAutostartFolder() {
    return std::make_unique<AutostartFolderOnDisk>();
}

Status MemoryStore::read(LoginItemAccess, LoginItems& items) {
    ++reads;
    if (readStatus == noErr)
        items = list;
    return readStatus;
}

Status MemoryStore::write(const LoginItems& items) {
    ++writes;
    if (writeStatus == noErr)
        list = items;
    return writeStatus;
}

} // namespace quorvi::test
