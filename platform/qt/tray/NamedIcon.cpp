// SPDX-License-Identifier: MIT
#include "platform/qt/tray/NamedIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <utility>

namespace tarnwick {

namespace {

class Engine final : public QIconEngine
{
public:
    Engine(QIcon picture, QString name) : _picture(std::move(picture)), _name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override
    {
        _picture.paint(painter, area, Qt::AlignCenter, mode, state);
    }
    [[nodiscard]] QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return _picture.pixmap(size, mode, state);
    }
    [[nodiscard]] QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return _picture.availableSizes(mode, state);
    }
    [[nodiscard]] bool isNull() override { return _picture.isNull(); }
    [[nodiscard]] QString iconName() override { return _name; }
    [[nodiscard]] QIconEngine* clone() const override { return new Engine(_picture, _name); }

private:
    QIcon _picture;
    QString _name;
};

} // namespace

QIcon namedIcon(const QIcon& picture, const QString& name)
{
    return QIcon(new Engine(picture, name));
}

} // namespace tarnwick
