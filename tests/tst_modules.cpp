// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/Suite.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>

/**
 * The road of hosts that import the modules by their qmldir files: the order of imports, and a second engine in the
 * same process.
 */
class TestModules final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    void importsInAnyOrder();
};

namespace {

// Each makes one type of every module, so that an import that brought nothing shows.
QByteArray scene(const QByteArrayList &modules)
{
    QByteArray text = "import QtQuick 2.0\n";
    for (const QByteArray &module : modules)
        text += "import com.kestrum." + module + " 1.0\n";
    return text
        + "MainTabController { property Theme theme: Theme {} property Device device: Device { localPort: 7 "
          "}\n"
          "    property string word: translator.translate(\"album\")\n"
          "    property DynamicTranslator translator: DynamicTranslator {} }";
}

} // namespace

void TestModules::importsInAnyOrder()
{
    // A module line would make the import fail, as the types come with the engine. Qt says once that it is not there.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("does not contain a module identifier directive"_s));
    QQmlEngine engines[3]; // all of them live on side by side
    QByteArrayList modules{"halvoraint", "logic", "translations"};
    for (QQmlEngine &engine : engines) {
        engine.addImportPath(QStringLiteral(HALVORA_QML));
        QQmlComponent component(&engine);
        component.setData(scene(modules), QUrl("qrc:/scene.qml"_s));
        const QScopedPointer<QObject> root(component.create());
        QVERIFY2(root, qPrintable(component.errorString()));
        QCOMPARE(root->property("word").toString(), "Albums"_s);
        QCOMPARE(root->property("device").value<QObject *>()->property("localPort").toInt(), 7);
        modules.move(2, 0);
    }
}

HALVORA_SUITE_MAIN(TestModules)

#include "tst_modules.moc"
