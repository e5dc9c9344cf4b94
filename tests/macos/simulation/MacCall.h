// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <optional>
#include <type_traits>

namespace tarnwick {

/// One call of a simulated function, written down with its arguments as it is made. The first thing that
/// every one of these functions does.
///
/// An argument is written down as a number, a text, or for an address: the value of the object that is there,
/// or the object's name where it is nothing but a handle; true for the address of anything else (a function,
/// room for a result), an invalid value for null.
class MacCall
{
public:
    /// `function` is __func__, or the name under which the function is looked up.
    template <typename... Arguments>
    explicit MacCall(const char* function, const Arguments&... arguments)
        : MacCall(QString::fromLatin1(function), QVariantList{_described(arguments)...})
    {
    }

    /// Whether the test wants this call to do nothing and give nothing.
    [[nodiscard]] bool fails() const { return _status.has_value(); }
    /// What a call that fails gives where it gives a status.
    [[nodiscard]] int status() const { return _status.value_or(0); }
    [[nodiscard]] const QString& function() const { return _function; }

private:
    MacCall(QString function, const QVariantList& arguments);

    [[nodiscard]] static QVariant _describedAddress(const void* address);

    template <typename Argument>
    [[nodiscard]] static QVariant _described(const Argument& argument)
    {
        if constexpr (std::is_same_v<Argument, QVariant>)
            return argument;
        else if constexpr (std::is_pointer_v<Argument> && std::is_function_v<std::remove_pointer_t<Argument>>)
            return argument ? QVariant(true) : QVariant();
        else if constexpr (std::is_pointer_v<Argument>)
            return _describedAddress(argument);
        else if constexpr (std::is_enum_v<Argument>)
            return _described(static_cast<std::underlying_type_t<Argument>>(argument));
        else if constexpr (std::is_integral_v<Argument> && !std::is_same_v<Argument, bool>)
            return std::is_signed_v<Argument> ? QVariant(qlonglong(argument))
                                              : QVariant(qulonglong(argument));
        else
            return QVariant(argument);
    }

    QString _function;
    std::optional<int> _status;
};

} // namespace tarnwick
