// Prints the applications that GIO would show, one a line, sorted: id, name, program, entry.

#include <cstdio>
#include <memory>
#include <set>
#include <string>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace {

struct Release {
    void operator()(GAppInfo* information) const { g_object_unref(information); }
};
struct FreeList {
    void operator()(GList* list) const { g_list_free(list); }
};

using Text = std::unique_ptr<gchar, decltype(&g_free)>;

/// The first word of the command line, as GIO splits it to start it.
std::string programOf(GAppInfo* application) {
    gchar** words = nullptr;
    if (!g_shell_parse_argv(g_app_info_get_commandline(application), nullptr, &words, nullptr))
        return {};
    const std::unique_ptr<gchar*, decltype(&g_strfreev)> owner(words, g_strfreev);
    return Text(g_path_get_basename(words[0]), g_free).get();
}

std::string lineOf(GAppInfo* application) {
    const std::string id = g_app_info_get_id(application);
    // The name on one line, as in a list.
    const Text name(g_strdup(g_app_info_get_name(application)), g_free);
    g_strstrip(g_strdelimit(name.get(), "\t\n", ' '));
    return id.substr(0, id.rfind('.')) + "\t" + name.get() + "\t" + programOf(application) + "\t" +
           g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application)) + "\n";
}

} // namespace

int main() {
    const std::unique_ptr<GList, FreeList> all(g_app_info_get_all());
    std::set<std::string> lines;
    for (const GList* element = all.get(); element; element = element->next) {
        const std::unique_ptr<GAppInfo, Release> application(static_cast<GAppInfo*>(element->data));
        if (g_app_info_should_show(application.get()))
            lines.insert(lineOf(application.get()));
    }
    for (const auto& line : lines)
        std::fputs(line.c_str(), stdout);
}
