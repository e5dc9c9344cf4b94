// SPDX-License-Identifier: MIT
#include "shortcut/Binding.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class Model final : public KeyValueObject
{
public:
    QList<std::pair<QString, QVariant>> set;
    void setValueForKeyPath(const QVariant& value, const QString& keyPath) override
    {
        set.append({keyPath, value});
    }
};

/// Adds one on the way there, and takes it away on the way back.
class AddingOne final : public ValueTransformer
{
public:
    explicit AddingOne(bool allowsReverse) : _allowsReverse(allowsReverse) {}
    [[nodiscard]] bool classAllowsReverseTransformation() const override { return _allowsReverse; }
    [[nodiscard]] QVariant transformedValue(const QVariant& value) const override
    {
        return value.toInt() + 1;
    }
    [[nodiscard]] QVariant reverseTransformedValue(const QVariant& value) const override
    {
        return value.toInt() - 1;
    }

private:
    bool _allowsReverse;
};

Binding bindingTo(Model& model)
{
    Binding binding;
    binding.observedObject = &model;
    binding.observedKeyPath = u"values.number"_s;
    return binding;
}

} // namespace

TEST(Binding, value_isSetOnTheObjectForTheKeyPath)
{
    Model model;
    pushValue(7, bindingTo(model));
    EXPECT_EQ(model.set, (QList<std::pair<QString, QVariant>>{{u"values.number"_s, 7}}));
}

TEST(Binding, value_isTransformedBack_byTheTransformerOrTheOneOfThatName)
{
    Model model;
    Binding binding = bindingTo(model);
    ValueTransformer::setValueTransformerForName(std::make_shared<AddingOne>(true), u"Adding one"_s);
    binding.valueTransformerName = u"Adding one"_s;
    pushValue(7, binding);
    EXPECT_EQ(model.set.takeLast().second, 6);

    ValueTransformer::setValueTransformerForName(nullptr, u"Adding one"_s);
    pushValue(7, binding);
    EXPECT_EQ(model.set.takeLast().second, 7) << "no transformer of that name";

    binding.valueTransformer = std::shared_ptr<ValueTransformer>(std::make_shared<AddingOne>(true));
    pushValue(7, binding);
    EXPECT_EQ(model.set.takeLast().second, 6);
}

TEST(Binding, transformerThatCannotTransformBack_isLeftOut)
{
    Model model;
    Binding binding = bindingTo(model);
    binding.valueTransformer = std::shared_ptr<ValueTransformer>(std::make_shared<AddingOne>(false));
    pushValue(7, binding);
    EXPECT_EQ(model.set.takeLast().second, 7);
}

TEST(Binding, withoutAnObjectOrAKeyPath_nothingIsSet)
{
    Model model;
    for (const auto& object : {BindingEntry<KeyValueObject*>(), BindingEntry<KeyValueObject*>::nullObject(),
                               BindingEntry<KeyValueObject*>(nullptr)}) {
        Binding binding = bindingTo(model);
        binding.observedObject = object;
        pushValue(7, binding);
    }
    for (const auto& keyPath : {BindingEntry<QString>(), BindingEntry<QString>::nullObject()}) {
        Binding binding = bindingTo(model);
        binding.observedKeyPath = keyPath;
        pushValue(7, binding);
    }
    EXPECT_TRUE(model.set.isEmpty());
}
