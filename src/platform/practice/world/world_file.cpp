#include "platform/practice/world/world_file.h"

#include "platform/practice/world/host_file.h"
#include "platform/practice/world/names.h"
#include "platform/practice/world/registry_json.h"
#include "platform/practice/world/sid.h"
#include "platform/practice/world/stock_world.h"
#include "platform/practice/world/world_members.h"

#include <set>

namespace kestrelmoor::practice {

namespace {

constexpr int kFormat = 1;

void ReadFiles(const JsonPlace& place, FileTree& tree) {
    std::vector<File> files;
    ReadJson(place, files);
    for (const File& file : files) {
        File& made = file.IsDirectory() ? tree.CreateFolder(file.path) : tree.CreateFile(file.path);
        made = file;
    }
}

Json WriteFiles(const FileTree& tree) {
    Json list = Json::array();
    for (const auto& [name, file] : tree.Files())
        list.push_back(WriteJson(file));
    return list;
}

void NeedSid(const String& sid, const std::string& pointer) {
    if (!SidOfText(sid))
        throw JsonDefect{pointer, "a security identifier such as S-1-5-21-10-20-30-1001 is needed here"};
}

template <class Record>
void NeedOwnNames(const std::vector<Record>& records, const std::string& pointer) {
    std::set<String> names;
    for (std::size_t i = 0; i < records.size(); ++i)
        if (records[i].name.empty() || !names.insert(FoldName(records[i].name)).second)
            throw JsonDefect{pointer + "/" + std::to_string(i) + "/name",
                             "a name of its own is needed here, not empty and not that of another"};
}

/// What one record can't tell by itself.
void Check(Network& network) {
    NeedOwnNames(network.computers, "/network/computers");
    NeedOwnNames(network.domains, "/network/domains");
    if (!network.FindComputer(network.local_computer))
        throw JsonDefect{"/network/local_computer", "none of the computers has this name"};
    NeedSid(network.user.sid, "/network/user/sid");
    for (std::size_t i = 0; i < network.domains.size(); ++i)
        NeedSid(network.domains[i].sid, "/network/domains/" + std::to_string(i) + "/sid");
    if (network.joined && !network.PrimaryDomain())
        throw JsonDefect{"/network/joined", "the local computer's group is none of the domains"};
}

/// As the file writes it, without line ends of its own.
std::string Shown(const std::string& pointer) {
    const std::string quoted = Json(pointer.empty() ? "/" : pointer).dump();
    return quoted.substr(1, quoted.size() - 2);
}

void ReadParts(World& world, const JsonPlace& place) {
    JsonReader reader(place);
    int format = 0;
    reader.Required("format", format);
    if (format != kFormat)
        throw JsonDefect{"/format", "this program reads format " + std::to_string(kFormat)};
    Moment now = 0;
    reader.Time("clock", now);
    world.clock.Set(now);
    reader.Optional("pump_milliseconds", world.pump_milliseconds, 10);
    reader.Required("network", world.network);
    Check(world.network);
    reader.Optional("machine", world.machine, world.machine);
    reader.Optional("shell", world.shell, world.shell);
    reader.Optional("current_directory", world.files.current_directory, u"C:\\");
    reader.Optional("libraries", world.libraries.all);
    std::vector<Fault> faults;
    reader.Optional("faults", faults);
    for (const Fault& fault : faults)
        world.Fail(fault.name, fault.code, fault.nth);
    reader.Optional("registry", world.registry, world.registry);
    reader.Optional("files", world.files, world.files);
    reader.Finish();
}

} // namespace

void ReadJson(const JsonPlace& place, FileTree& tree) {
    ReadFiles(place, tree);
}

void ReadWorld(World& world, std::string_view text, const std::string& name) {
    try {
        const Json document = Json::parse(text);
        ReadParts(world, JsonPlace(document, ""));
    } catch (const nlohmann::json::parse_error& error) {
        throw WorldFileError(name + ":" + std::to_string(LineOfByte(text, error.byte - 1)) +
                             ": this is no well-formed JSON text");
    } catch (const nlohmann::json::out_of_range&) {
        throw WorldFileError(name + ":" + std::to_string(LineOfFailure(text)) + ": this number is too large");
    } catch (const JsonDefect& defect) {
        throw WorldFileError(name + ":" + std::to_string(LineOfPointer(text, defect.pointer)) + ": " +
                             Shown(defect.pointer) + ": " + defect.what);
    }
}

std::string WriteWorld(const World& world) {
    JsonWriter writer;
    writer.Required("format", kFormat);
    writer.Time("clock", world.clock.Now());
    writer.Optional("pump_milliseconds", world.pump_milliseconds, 10);
    writer.Required("network", world.network);
    writer.Required("machine", world.machine);
    writer.Required("shell", world.shell);
    writer.Optional("current_directory", world.files.current_directory, u"C:\\");
    writer.Required("libraries", world.libraries.all);
    writer.Optional("faults", world.calls.Faults());
    Json document = writer.Take();
    document["registry"] = WriteJson(world.registry);
    document["files"] = WriteFiles(world.files);
    return document.dump(2) + "\n";
}

void LoadWorld(World& world, const std::string& path) {
    ReadWorld(world, ReadHostFile(path), path);
}

void SaveWorld(const World& world, const std::string& path) {
    ReplaceHostFile(path, WriteWorld(world));
}

void LoadStockWorld(World& world) {
    ReadWorld(world, StockWorldText(), "stock world");
}

std::string_view StockWorldText() {
    return kStockWorldText;
}

} // namespace kestrelmoor::practice
