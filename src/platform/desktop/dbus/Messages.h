// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <tuple>
#include <utility>

namespace calmora {

// Anyone on the bus may send anything, and Qt ends the program when a message is read as other
// types than it carries. Signals and answers are read here, after their types were compared; calls
// to our objects are compared by Qt.

/// Messages with a longer list are not read.
constexpr qsizetype longestList = 10'000;

/// The D-Bus type of a value in a message, such as "a{sv}"; empty when it has none.
/// Source: freedesktop D-Bus Specification, "Type System".
[[nodiscard]] QString typeOf(const QVariant& value);

/// The D-Bus type that a C++ type is sent as; empty for one that is not registered with Qt.
template <typename Value>
[[nodiscard]] QString typeOf() {
    return QString::fromLatin1(QDBusMetaType::typeToSignature(QMetaType::fromType<Value>()));
}

/// Reads the next value, whose type was compared before. False for a list that is too long.
template <typename Value>
[[nodiscard]] bool readBounded(const QDBusArgument& from, Value& value) {
    from >> value;
    return true;
}

template <typename Element>
[[nodiscard]] bool readBounded(const QDBusArgument& from, QList<Element>& list) {
    from.beginArray();
    while (!from.atEnd() && list.size() < longestList) {
        Element element;
        from >> element;
        list.append(std::move(element));
    }
    const bool isWhole = from.atEnd();
    from.endArray();
    return isWhole;
}

[[nodiscard]] bool readBounded(const QDBusArgument& from, QVariantMap& map);

/// Reads the value if it has exactly this type and no list that is too long; else false.
template <typename Value>
[[nodiscard]] bool readInto(Value& value, const QVariant& from) {
    const QString type = typeOf(from);
    if (type.isEmpty() || type != typeOf<Value>()) {
        return false;
    }
    if (from.metaType() == QMetaType::fromType<QDBusArgument>()) {
        return readBounded(from.value<QDBusArgument>(), value);
    }
    value = from.value<Value>();
    return true;
}

/// The same for a list of strings, which Qt has already read.
[[nodiscard]] bool readInto(QStringList& list, const QVariant& from);

/// The value, under the same conditions.
template <typename Value>
[[nodiscard]] std::optional<Value> readValue(const QVariant& from) {
    Value value{};
    return readInto(value, from) ? std::optional(std::move(value)) : std::nullopt;
}

/// The arguments of a signal or an answer, under the same conditions; nothing for an error.
template <typename... Values>
[[nodiscard]] std::optional<std::tuple<Values...>> readArguments(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (message.type() == QDBusMessage::ErrorMessage ||
        arguments.size() != qsizetype{sizeof...(Values)}) {
        return std::nullopt;
    }
    std::tuple<Values...> values;
    auto next = arguments.cbegin();
    const bool isRead =
        std::apply([&next](auto&... value) { return (readInto(value, *next++) && ...); }, values);
    return isRead ? std::optional(std::move(values)) : std::nullopt;
}

/// The only argument, under the same conditions.
template <typename Value>
[[nodiscard]] std::optional<Value> readArgument(const QDBusMessage& message) {
    auto read = readArguments<Value>(message);
    return read ? std::optional(std::get<0>(*std::move(read))) : std::nullopt;
}

/// The value in the answer to org.freedesktop.DBus.Properties.Get, under the same conditions.
template <typename Value>
[[nodiscard]] std::optional<Value> readProperty(const QDBusMessage& answer) {
    const auto variant = readArgument<QDBusVariant>(answer);
    return variant ? readValue<Value>(variant->variant()) : std::nullopt;
}

} // namespace calmora
