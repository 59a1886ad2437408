// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Stage.h"

#include "plugin/TypeRegistry.h"
#include "screens/DynamicTranslator.h"
#include "support/SceneItems.h"
#include "support/Text.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QtTest>

namespace {

class SquarePictures final : public QQuickImageProvider
{
public:
    SquarePictures() : QQuickImageProvider(Image) { }

    QImage requestImage(const QString &id, QSize *size, const QSize &) override
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(id == "http://host/a.png"_s ? Qt::green : Qt::magenta);
        *size = image.size();
        return image;
    }
};

const QString scene = R"(
        import QtQuick 2.0
        import "qrc:/Qml"
        import "qrc:/Qml/Playlists"
        Item {
            property var told: []
            function tell(text) { told = told.concat([text]) }
            function requestImage(uri, item) { item.updateImage(uri) }
            function menuActionForItem(action, item) { tell(action + " " + item.name) }
            function menuActionForItemPL(action, item, uri) { tell(action + " " + item.name + " " + uri) }
            MouseArea { anchors.fill: parent; onClicked: tell("below") }
            %1
        })"_s;

} // namespace

Stage::Stage(const QString &tested, const QVariant &smallScreen)
{
    registerHalvoraTypes();
    DynamicTranslator::loadTranslations();
    theme.setImgSuffix("_0"_s);
    view.engine()->addImageProvider("async"_s, new SquarePictures);
    QQmlContext *context = view.rootContext();
    context->setContextProperty("currentTheme"_s, &theme);
    if (smallScreen.isValid())
        context->setContextProperty("smallScreen"_s, smallScreen);
    QFont::insertSubstitution("Arial Unicode MS"_s, "DejaVu Sans"_s);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(450, 640);
    QQmlComponent component(view.engine());
    component.setData(scene.arg(tested).toUtf8(), QUrl());
    view.setContent(QUrl(), &component, component.create());
    view.show();
    QVERIFY(view.rootObject() && QTest::qWaitForWindowExposed(&view));
}

QQuickItem *Stage::tested() const
{
    return view.rootObject()->childItems().value(1);
}

QQuickItem *Stage::label(const QString &text) const
{
    return SceneItems::label(view.rootObject(), text);
}

QStringList Stage::texts() const
{
    return SceneItems::texts(view.rootObject());
}

void Stage::click(const QPoint &place)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, place);
}

void Stage::clickOn(const QString &text)
{
    const QQuickItem *item = label(text);
    QVERIFY2(item, qPrintable("not on show: "_s + text));
    click(SceneItems::centreOf(item));
}

void Stage::drag(const QList<int> &places)
{
    QTest::mousePress(&view, Qt::LeftButton, {}, {places.first(), 20});
    for (int x : places)
        QTest::mouseMove(&view, {x, 20});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {places.last(), 20});
}

QStringList Stage::told()
{
    const QStringList told = view.rootObject()->property("told").toStringList();
    view.rootObject()->setProperty("told", QStringList());
    return told;
}
