// SPDX-License-Identifier: MIT
#include "app/InstanceCommands.h"

#include "app/AppDelegate.h"
#include "platform/qt/AlertSession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace calmora {
namespace {

void addLine(std::string& text, const AppInfo& row) {
    text += std::to_string(row.pid) + '\t' + row.bundleIdentifier.value_or("") + '\t' + row.name +
            (row.isWhitelisted ? "\tprotected" : "") + (row.isBackgroundApp ? "\tbackground" : "") +
            '\n';
}

QJsonValue number(const std::optional<double>& value) {
    return value ? QJsonValue(*value) : QJsonValue();
}

QJsonObject object(const AppInfo& row) {
    const bool mayBeTicked = !row.isBackgroundApp && !row.isWhitelisted;
    QJsonObject result{
        {"pid", row.pid},
        {"name", QString::fromStdString(row.name)},
        {"id", row.bundleIdentifier ? QString::fromStdString(*row.bundleIdentifier) : QJsonValue()},
        {"ticked", mayBeTicked && row.isSelected},
        {"protected", row.isWhitelisted},
        {"background", row.isBackgroundApp},
        {"cpu", number(row.cpuUsage)},
        {"memory", number(row.memoryMB)},
    };
    if (row.childProcesses) {
        QJsonArray members;
        for (const AppInfo& member : *row.childProcesses) {
            members.append(object(member));
        }
        result.insert("members", members);
    }
    return result;
}

CommandAnswer answer(const QuitOutcome& outcome) {
    return {outcome.ended > 0 ? CommandStatus::done : CommandStatus::nothingDone,
            std::to_string(outcome.ended) + " of " + std::to_string(outcome.ticked) +
                " ticked applications ended.\n"};
}

} // namespace

std::string listAsText(std::span<const AppInfo> rows) {
    std::string text;
    for (const AppInfo& row : rows) {
        if (!row.childProcesses) {
            addLine(text, row);
            continue;
        }
        for (const AppInfo& member : *row.childProcesses) {
            addLine(text, member);
        }
    }
    return text;
}

std::string listAsJson(std::span<const AppInfo> rows) {
    QJsonArray list;
    for (const AppInfo& row : rows) {
        list.append(object(row));
    }
    return QJsonDocument(list).toJson().toStdString();
}

bool InstanceCommands::isBusyWith(AppCommand command) const {
    return alerts_.isOpen() && command != AppCommand::list && command != AppCommand::diagnose;
}

CommandAnswer InstanceCommands::run(const CommandLine& line) {
    if (isBusyWith(line.command)) {
        return {CommandStatus::nothingDone, "Calmora is waiting for an answer to its question.\n"};
    }
    switch (line.command) {
    case AppCommand::toggle:
        delegate_.togglePopover();
        return {};
    case AppCommand::settings:
        actions_.openSettings();
        return {};
    case AppCommand::quitAll:
        return answer(delegate_.quitAll(/*force=*/false));
    case AppCommand::forceQuitAll:
        return answer(delegate_.quitAll(/*force=*/true));
    case AppCommand::list: {
        const auto rows = delegate_.rows();
        return {CommandStatus::done, line.asJson ? listAsJson(rows) : listAsText(rows)};
    }
    case AppCommand::diagnose:
        return {CommandStatus::done, actions_.diagnose(line.processes)};
    case AppCommand::leave:
        actions_.terminate();
        return {};
    case AppCommand::start:
    case AppCommand::version:
    case AppCommand::help:
        break;
    }
    return {.status = CommandStatus::usage};
}

} // namespace calmora
