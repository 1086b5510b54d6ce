#pragma once

#include "platform/practice/world/directory_json.h"
#include "platform/practice/world/json_writer.h"
#include "platform/practice/world/world.h"

#include <array>
#include <concepts>

namespace kestrelmoor::practice {

/// The members of each record in a world file, told once for reading and for writing.
template <class Type, class Record>
concept Is = std::same_as<std::remove_const_t<Type>, Record>;

template <class Archive, Is<PasswordPolicy> Record>
void Members(Archive& archive, Record& policy) {
    archive.Optional("min_length", policy.min_length);
    archive.Optional("max_age_seconds", policy.max_age, kForever);
    archive.Optional("min_age_seconds", policy.min_age);
    archive.Optional("history_length", policy.history_length);
    archive.Optional("complexity", policy.complexity);
}

template <class Archive, Is<Account> Record>
void Members(Archive& archive, Record& account) {
    archive.Required("name", account.name);
    archive.Required("password", account.password);
    archive.Time("password_set", account.password_set);
    archive.Optional("former_passwords", account.former_passwords);
    archive.Optional("password_expired", account.password_expired);
    archive.Optional("disabled", account.disabled);
    archive.Optional("locked", account.locked);
    archive.Optional("cannot_change_password", account.cannot_change_password);
    archive.Optional("password_never_expires", account.password_never_expires);
}

template <class Archive, Is<AccountStore> Record>
void Members(Archive& archive, Record& store) {
    archive.Optional("policy", store.policy);
    archive.Optional("accounts", store.accounts);
}

template <class Archive, Is<Computer> Record>
void Members(Archive& archive, Record& computer) {
    archive.Required("name", computer.name);
    archive.Optional("group", computer.group, u"WORKGROUP");
    archive.Optional("reachable", computer.reachable, true);
    Members(archive, computer.store);
}

template <class Archive, Is<Controller> Record>
void Members(Archive& archive, Record& controller) {
    archive.Required("name", controller.name);
    archive.Required("dns_name", controller.dns_name);
    archive.Optional("primary", controller.primary);
    archive.Optional("reachable", controller.reachable, true);
}

template <class Archive, Is<Domain> Record>
void Members(Archive& archive, Record& domain) {
    archive.Required("name", domain.name);
    archive.Required("dns_name", domain.dns_name);
    archive.Required("sid", domain.sid);
    archive.Required("controllers", domain.controllers);
    Members(archive, domain.store);
}

template <class Archive, Is<LoggedOnUser> Record>
void Members(Archive& archive, Record& user) {
    archive.Required("name", user.name);
    archive.Required("sid", user.sid);
}

template <class Archive, Is<Directory> Record>
void Members(Archive& archive, Record& directory) {
    archive.Optional("present", directory.present);
    archive.Optional("answers", directory.answers);
}

template <class Archive, Is<Network> Record>
void Members(Archive& archive, Record& network) {
    archive.Required("local_computer", network.local_computer);
    archive.Optional("joined", network.joined);
    archive.Required("user", network.user);
    archive.Required("computers", network.computers);
    archive.Optional("domains", network.domains);
    archive.Optional("library_present", network.library_present, true);
    archive.Optional("missing_entries", network.missing_entries);
    archive.Optional("directory", network.directory);
}

template <class Archive, Is<LanguageScript> Record>
void Members(Archive& archive, Record& script) {
    const LanguageScript standard;
    archive.Optional("languages", script.languages);
    archive.Optional("first_index", script.first_index, standard.first_index);
    archive.Optional("answers", script.answers);
    archive.Optional("accepts_any", script.accepts_any);
    archive.Optional("class_result", script.class_result);
    archive.Optional("create_result", script.create_result);
    archive.Optional("interface_result", script.interface_result);
    archive.Optional("text_result", script.text_result);
    archive.Optional("every_text", script.every_text);
    archive.Optional("font_name", script.font_name, standard.font_name);
    archive.Optional("font_charset", script.font_charset, standard.font_charset);
    archive.Optional("help_file", script.help_file, standard.help_file);
}

template <class Archive, Is<Library> Record>
void Members(Archive& archive, Record& library) {
    static constexpr std::array<std::pair<const char*, LibraryKind>, 4> kKinds{{
        {"host_file", LibraryKind::HostFile},
        {"scripted", LibraryKind::Scripted},
        {"messages", LibraryKind::Messages},
        {"broken", LibraryKind::Broken},
    }};
    archive.Required("path", library.path);
    archive.Choice("kind", library.kind, kKinds);
    archive.Optional("host_file", library.host_file);
    archive.Optional("lacks", library.lacks);
    archive.Optional("script", library.script);
}

template <class Archive, Is<SystemVersion> Record>
void Members(Archive& archive, Record& version) {
    archive.Required("platform_id", version.platform_id);
    archive.Required("major", version.major);
    archive.Required("minor", version.minor);
    archive.Required("build", version.build);
}

template <class Archive, Is<Appearance> Record>
void Members(Archive& archive, Record& appearance) {
    const Appearance standard;
    archive.Optional("library_present", appearance.library_present, true);
    archive.Optional("missing_entries", appearance.missing_entries);
    archive.Optional("app_themed", appearance.app_themed);
    archive.Optional("theme_active", appearance.theme_active);
    archive.Optional("app_properties", appearance.app_properties, standard.app_properties);
    archive.Optional("theme_colours", appearance.theme_colours);
    archive.Optional("system_colours", appearance.system_colours, standard.system_colours);
    archive.Optional("metrics", appearance.metrics, standard.metrics);
    archive.Optional("icons", appearance.icons, standard.icons);
}

template <class Archive, Is<ShellItem> Record>
void Members(Archive& archive, Record& item) {
    static constexpr std::array<std::pair<const char*, ShellItemKind>, 5> kKinds{{
        {"other", ShellItemKind::Other},
        {"domain", ShellItemKind::Domain},
        {"computer", ShellItemKind::Computer},
        {"share", ShellItemKind::Share},
        {"network", ShellItemKind::Network},
    }};
    static constexpr std::array<std::pair<const char*, NameForm>, 3> kForms{{
        {"wide", NameForm::Wide},
        {"offset", NameForm::Offset},
        {"bytes", NameForm::Bytes},
    }};
    archive.Required("name", item.name);
    archive.OptionalChoice("kind", item.kind, kKinds, ShellItemKind::Other);
    archive.OptionalChoice("name_form", item.name_form, kForms, NameForm::Wide);
    archive.Optional("undescribed", item.undescribed);
    archive.Optional("hidden", item.hidden);
    archive.Optional("record_bytes", item.record_bytes, 32);
    archive.Optional("items", item.items);
}

template <class Archive, Is<ShellTree> Record>
void Members(Archive& archive, Record& shell) {
    archive.Optional("network_present", shell.network_present, true);
    archive.Required("network", shell.network);
}

template <class Archive, Is<OwnVersion> Record>
void Members(Archive& archive, Record& version) {
    archive.Required("title", version.title);
    archive.Required("legal_notice", version.legal_notice);
    archive.Required("major", version.major);
    archive.Required("minor", version.minor);
    archive.Required("revision", version.revision);
}

template <class Archive, Is<Machine> Record>
void Members(Archive& archive, Record& machine) {
    const Machine standard;
    archive.Optional("version", machine.version);
    archive.Optional("interface_language", machine.interface_language, standard.interface_language);
    archive.Optional("thread_locale", machine.thread_locale, standard.thread_locale);
    archive.Optional("keyboard_cues", machine.keyboard_cues);
    archive.Optional("appearance", machine.appearance);
    archive.Optional("own_version", machine.own_version);
    archive.Optional("program_folder", machine.program_folder, standard.program_folder);
    archive.Optional("program_name", machine.program_name, standard.program_name);
    archive.Optional("command_line", machine.command_line);
    archive.Optional("special_folders", machine.special_folders);
    archive.Optional("environment", machine.environment);
    archive.Optional("language_names", machine.language_names);
    archive.Optional("system_messages", machine.system_messages);
    archive.Optional("network_messages", machine.network_messages);
    archive.Optional("privileges", machine.privileges);
    archive.Optional("privileges_assigned", machine.privileges_assigned, true);
}

template <class Archive, Is<Fault> Record>
void Members(Archive& archive, Record& fault) {
    archive.Required("call", fault.name);
    archive.Required("code", fault.code);
    archive.Optional("nth", fault.nth, 1);
}

template <class Archive, Is<File> Record>
void Members(Archive& archive, Record& file) {
    archive.Required("path", file.path);
    archive.Optional("attributes", file.attributes, file_attribute::kArchive);
    archive.Optional("content", file.content);
    archive.Optional("refuses_reading", file.refuses_reading);
    archive.Optional("refuses_writing", file.refuses_writing);
}

} // namespace kestrelmoor::practice
