// SPDX-License-Identifier: MIT
#include "platform/desktop/status/MenuObject.h"

#include "support/ShownName.h"

#include <QDBusError>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace calmora {
namespace {

QVariantMap describe(const StatusMenuItem& item) {
    if (item.title.empty()) {
        return {{"type", "separator"}};
    }
    // A single underscore would mark the next letter as the entry's access key.
    QVariantMap properties = {
        {"label", QString::fromStdString(shownName(item.title)).replace('_', "__")},
        {"enabled", item.isEnabled},
        {"visible", true},
    };
    if (!item.keyEquivalent.empty()) {
        const QList<QStringList> shortcut = {
            {"Control", QString::fromStdString(item.keyEquivalent)}};
        properties["shortcut"] = QVariant::fromValue(shortcut);
    }
    return properties;
}

/// The properties with these names; all if there are no names.
QVariantMap chosen(QVariantMap properties, const QStringList& names) {
    if (!names.isEmpty()) {
        properties.removeIf([&](const auto& at) { return !names.contains(at.key()); });
    }
    return properties;
}

} // namespace

MenuObject::MenuObject(QDBusConnection connection,
                       std::function<std::vector<StatusMenuItem>()> build,
                       std::function<void(bool)> onOpen, std::function<void()> onShow)
    : build_(std::move(build)), onOpen_(std::move(onOpen)), onShow_(std::move(onShow)) {
    registerStatusTypes();
    connection.registerObject(path, this, QDBusConnection::ExportAllContents);
}

std::vector<MenuObject::Entry> MenuObject::buildEntries() {
    std::vector<Entry> entries;
    int separators = 0;
    for (StatusMenuItem& item : build_()) {
        // No title has a line feed, so that a separator's key is unique.
        const std::string key =
            item.title.empty() ? '\n' + std::to_string(separators++) : item.title;
        const auto [found, isNew] = ids_.try_emplace(key, lastId_ + 1);
        lastId_ += isNew ? 1 : 0;
        QVariantMap properties = describe(item);
        entries.push_back({found->second, std::move(item), std::move(properties)});
    }
    return entries;
}

bool MenuObject::update() {
    const std::vector<Entry> before = std::exchange(entries_, buildEntries());
    const auto isSameShape = [](const Entry& a, const Entry& b) {
        return a.id == b.id && a.properties.keys() == b.properties.keys();
    };
    if (!std::ranges::equal(before, entries_, isSameShape)) {
        Q_EMIT LayoutUpdated(++revision_, 0);
        return true;
    }
    QList<DbusMenuProperties> updated;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        QVariantMap changes = entries_[i].properties;
        changes.removeIf(
            [&](const auto& at) { return before[i].properties.value(at.key()) == at.value(); });
        if (!changes.isEmpty()) {
            updated.append({entries_[i].id, changes});
        }
    }
    if (updated.isEmpty()) {
        return false;
    }
    Q_EMIT ItemsPropertiesUpdated(updated, {});
    return true;
}

const MenuObject::Entry* MenuObject::entry(int id) const {
    const auto found = std::ranges::find(entries_, id, &Entry::id);
    return found == entries_.end() ? nullptr : &*found;
}

QVariantMap MenuObject::propertiesOf(int id, const QStringList& names) const {
    if (id == 0) {
        return chosen({{"children-display", "submenu"}}, names);
    }
    const Entry* known = entry(id);
    return known ? chosen(known->properties, names) : QVariantMap();
}

void MenuObject::refuse() const {
    sendErrorReply(QDBusError::InvalidArgs, "No such entry");
}

QString MenuObject::textDirection() const {
    return QGuiApplication::layoutDirection() == Qt::RightToLeft ? "rtl" : "ltr";
}

bool MenuObject::handleEvent(int id, const QString& event) {
    if (id == 0) {
        if (event == "opened") {
            update();
            onOpen_(true);
        } else if (event == "closed") {
            onOpen_(false);
        }
        return true;
    }
    const Entry* known = entry(id);
    if (!known) {
        return false;
    }
    if (event == "clicked" && known->item.isEnabled && known->item.action) {
        // The panel gets its answer first: the action may end the program or open a window.
        QTimer::singleShot(0, this, known->item.action);
    }
    return true;
}

uint MenuObject::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                           DbusMenuLayout& layout) {
    if (parentId != 0 && !entry(parentId)) {
        refuse();
    }
    layout = {parentId, propertiesOf(parentId, propertyNames), {}};
    if (parentId == 0 && recursionDepth != 0) {
        for (const Entry& child : entries_) {
            const DbusMenuLayout row{child.id, chosen(child.properties, propertyNames), {}};
            layout.children.append(QDBusVariant(QVariant::fromValue(row)));
        }
    }
    return revision_;
}

QList<DbusMenuProperties> MenuObject::GetGroupProperties(const QList<int>& ids,
                                                         const QStringList& propertyNames) const {
    // Each entry once, however often it is asked for.
    QList<DbusMenuProperties> result;
    if (ids.contains(0)) {
        result.append({0, propertiesOf(0, propertyNames)});
    }
    for (const Entry& each : entries_) {
        if (ids.isEmpty() || ids.contains(each.id)) {
            result.append({each.id, chosen(each.properties, propertyNames)});
        }
    }
    return result;
}

QDBusVariant MenuObject::GetProperty(int id, const QString& name) {
    const QVariant value = propertiesOf(id).value(name);
    if (!value.isValid()) {
        refuse();
    }
    return QDBusVariant(value);
}

void MenuObject::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                       uint /*timestamp*/) {
    if (!handleEvent(id, eventId)) {
        refuse();
    }
}

QList<int> MenuObject::EventGroup(const QList<DbusMenuEvent>& events) {
    QList<int> unknown;
    for (const DbusMenuEvent& event : events) {
        if (!handleEvent(event.id, event.event)) {
            unknown += event.id;
        }
    }
    if (!events.isEmpty() && unknown.size() == events.size()) {
        refuse();
    }
    return unknown;
}

bool MenuObject::AboutToShow(int id) {
    if (id == 0) {
        onShow_();
    }
    return id == 0 && update();
}

QList<int> MenuObject::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    const bool isChanged = ids.contains(0) && AboutToShow(0);
    std::ranges::copy_if(ids, std::back_inserter(idErrors),
                         [&](int id) { return id != 0 && !entry(id); });
    return isChanged ? QList<int>{0} : QList<int>();
}

} // namespace calmora
