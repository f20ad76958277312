#include "platform/desktop/status/MenuObject.h"

#include "platform/desktop/dbus/Messages.h"
#include "support/ShownName.h"

#include <QDBusMessage>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

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

QVariantMap chosen(const QVariantMap& all, const QStringList& names) {
    if (names.isEmpty()) {
        return all;
    }
    QVariantMap some;
    for (auto at = all.cbegin(); at != all.cend(); ++at) {
        if (names.contains(at.key())) {
            some.insert(at.key(), at.value());
        }
    }
    return some;
}

QVariant inVariant(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

MenuObject::MenuObject(const QDBusConnection& connection,
                       std::function<std::vector<StatusMenuItem>()> build,
                       std::function<void(bool)> onOpen)
    : connection_(connection), build_(std::move(build)), onOpen_(std::move(onOpen)) {
    registerStatusTypes();
    connection_.registerVirtualObject(path, this);
}

MenuObject::~MenuObject() {
    connection_.unregisterObject(path);
}

std::vector<MenuObject::Entry> MenuObject::buildEntries() {
    std::vector<Entry> entries;
    int separators = 0;
    for (StatusMenuItem& item : build_()) {
        // No title has a line feed, so a separator's key is nobody else's.
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
    if (!std::ranges::equal(before, entries_, {}, &Entry::id, &Entry::id)) {
        QDBusMessage signal = QDBusMessage::createSignal(path, interfaceName, "LayoutUpdated");
        signal.setArguments({++revision_, 0});
        connection_.send(signal);
        return true;
    }
    QList<DbusMenuProperties> updated;
    QList<DbusMenuRemoved> removed;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        QVariantMap changes;
        for (auto at = entries_[i].properties.cbegin(); at != entries_[i].properties.cend(); ++at) {
            if (before[i].properties.value(at.key()) != at.value()) {
                changes[at.key()] = at.value();
            }
        }
        QStringList gone;
        for (const QString& name : before[i].properties.keys()) {
            if (!entries_[i].properties.contains(name)) {
                gone += name;
            }
        }
        if (!changes.isEmpty()) {
            updated.append({entries_[i].id, changes});
        }
        if (!gone.isEmpty()) {
            removed.append({entries_[i].id, gone});
        }
    }
    if (updated.isEmpty() && removed.isEmpty()) {
        return false;
    }
    QDBusMessage signal = QDBusMessage::createSignal(path, interfaceName, "ItemsPropertiesUpdated");
    signal.setArguments({QVariant::fromValue(updated), QVariant::fromValue(removed)});
    connection_.send(signal);
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

DbusMenuLayout MenuObject::layout(int id, int depth, const QStringList& names) const {
    DbusMenuLayout result{id, propertiesOf(id, names), {}};
    if (id == 0 && depth != 0) {
        for (const Entry& child : entries_) {
            result.children.append(layout(child.id, 0, names));
        }
    }
    return result;
}

bool MenuObject::handleEvent(const DbusMenuEvent& event) {
    if (event.id == 0) {
        if (event.event == "opened") {
            update();
            onOpen_(true);
        } else if (event.event == "closed") {
            onOpen_(false);
        }
        return true;
    }
    const Entry* known = entry(event.id);
    if (!known) {
        return false;
    }
    if (event.event == "clicked" && known->item.isEnabled && known->item.action) {
        // The panel gets its answer first: the action may end the program or open a window.
        QTimer::singleShot(0, this, known->item.action);
    }
    return true;
}

QVariant MenuObject::ownProperty(const QString& name) const {
    if (name == "Version") {
        return 3U;
    }
    if (name == "TextDirection") {
        return QGuiApplication::layoutDirection() == Qt::RightToLeft ? "rtl" : "ltr";
    }
    if (name == "Status") {
        return "normal";
    }
    if (name == "IconThemePath") {
        return QStringList();
    }
    return {};
}

bool MenuObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() == propertiesInterface) {
        return handleProperties(message, connection);
    }
    if (message.interface() != interfaceName) {
        return false;
    }
    if (entries_.empty()) {
        entries_ = buildEntries();
    }
    const std::pair<const char*, Answer (MenuObject::*)(const QDBusMessage&)> methods[] = {
        {"GetLayout", &MenuObject::getLayout},
        {"GetGroupProperties", &MenuObject::getGroupProperties},
        {"GetProperty", &MenuObject::getProperty},
        {"Event", &MenuObject::takeEvent},
        {"EventGroup", &MenuObject::takeEventGroup},
        {"AboutToShow", &MenuObject::aboutToShow},
        {"AboutToShowGroup", &MenuObject::aboutToShowGroup},
    };
    for (const auto& [name, method] : methods) {
        if (message.member() == QLatin1String(name)) {
            const Answer out = (this->*method)(message);
            return out ? answerCall(connection, message, *out)
                       : refuseCall(connection, message, "No such entry, or other types");
        }
    }
    return false;
}

bool MenuObject::handleProperties(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.member() == "Get") {
        const auto in = readArguments<QString, QString>(message);
        const QVariant value =
            in && std::get<0>(*in) == interfaceName ? ownProperty(std::get<1>(*in)) : QVariant();
        return value.isValid() ? answerCall(connection, message, {inVariant(value)})
                               : refuseCall(connection, message, "No such property");
    }
    if (message.member() == "GetAll") {
        if (!readArgument<QString>(message)) {
            return refuseCall(connection, message, "Other types");
        }
        QVariantMap all;
        for (const char* name : {"Version", "TextDirection", "Status", "IconThemePath"}) {
            all[name] = ownProperty(name);
        }
        return answerCall(connection, message, {all});
    }
    return false;
}

MenuObject::Answer MenuObject::getLayout(const QDBusMessage& call) {
    const auto in = readArguments<int, int, QStringList>(call);
    if (!in) {
        return std::nullopt;
    }
    const auto& [id, depth, names] = *in;
    if (id != 0 && !entry(id)) {
        return std::nullopt;
    }
    return QVariantList{revision_, QVariant::fromValue(layout(id, depth, names))};
}

MenuObject::Answer MenuObject::getGroupProperties(const QDBusMessage& call) {
    const auto in = readArguments<QList<int>, QStringList>(call);
    if (!in) {
        return std::nullopt;
    }
    const auto& [ids, names] = *in;
    // Each entry once, however often it is asked for.
    QList<DbusMenuProperties> result;
    if (ids.contains(0)) {
        result.append({0, propertiesOf(0, names)});
    }
    for (const Entry& each : entries_) {
        if (ids.isEmpty() || ids.contains(each.id)) {
            result.append({each.id, propertiesOf(each.id, names)});
        }
    }
    return QVariantList{QVariant::fromValue(result)};
}

MenuObject::Answer MenuObject::getProperty(const QDBusMessage& call) {
    const auto in = readArguments<int, QString>(call);
    const QVariant value =
        in ? propertiesOf(std::get<0>(*in), {}).value(std::get<1>(*in)) : QVariant();
    return value.isValid() ? Answer(QVariantList{inVariant(value)}) : std::nullopt;
}

MenuObject::Answer MenuObject::takeEvent(const QDBusMessage& call) {
    const auto in = readArguments<int, QString, QDBusVariant, uint>(call);
    const bool isTaken = in && handleEvent({std::get<0>(*in), std::get<1>(*in)});
    return isTaken ? Answer(QVariantList()) : std::nullopt;
}

MenuObject::Answer MenuObject::takeEventGroup(const QDBusMessage& call) {
    const auto events = readArgument<QList<DbusMenuEvent>>(call);
    if (!events) {
        return std::nullopt;
    }
    QList<int> unknown;
    for (const DbusMenuEvent& event : *events) {
        if (!handleEvent(event)) {
            unknown += event.id;
        }
    }
    if (!events->isEmpty() && unknown.size() == events->size()) {
        return std::nullopt;
    }
    return QVariantList{QVariant::fromValue(unknown)};
}

MenuObject::Answer MenuObject::aboutToShow(const QDBusMessage& call) {
    const auto id = readArgument<int>(call);
    return id ? Answer(QVariantList{*id == 0 && update()}) : std::nullopt;
}

MenuObject::Answer MenuObject::aboutToShowGroup(const QDBusMessage& call) {
    const auto ids = readArgument<QList<int>>(call);
    if (!ids) {
        return std::nullopt;
    }
    QList<int> changed;
    QList<int> unknown;
    if (ids->contains(0) && update()) {
        changed += 0;
    }
    for (const int id : *ids) {
        if (id != 0 && !entry(id)) {
            unknown += id;
        }
    }
    return QVariantList{QVariant::fromValue(changed), QVariant::fromValue(unknown)};
}

QString MenuObject::introspect(const QString&) const {
    return R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg name="parentId" type="i" direction="in"/>
    <arg name="recursionDepth" type="i" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="revision" type="u" direction="out"/>
    <arg name="layout" type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="properties" type="a(ia{sv})" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg name="id" type="i" direction="in"/>
    <arg name="name" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <method name="Event">
    <arg name="id" type="i" direction="in"/>
    <arg name="eventId" type="s" direction="in"/>
    <arg name="data" type="v" direction="in"/>
    <arg name="timestamp" type="u" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg name="events" type="a(isvu)" direction="in"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg name="id" type="i" direction="in"/>
    <arg name="needUpdate" type="b" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="updatesNeeded" type="ai" direction="out"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg name="updatedProps" type="a(ia{sv})"/>
    <arg name="removedProps" type="a(ias)"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg name="revision" type="u"/>
    <arg name="parent" type="i"/>
  </signal>
  <signal name="ItemActivationRequested">
    <arg name="id" type="i"/>
    <arg name="timestamp" type="u"/>
  </signal>
</interface>
)xml";
}

} // namespace calmora
