// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/SignalLog.h"
#include "support/Suite.h"

#include "navigation/NavigationController.h"
#include "plugin/TypeRegistry.h"
#include "screens/Theme.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickView>
#include <QRegularExpression>

/**
 * The navigation stack in a window: what its operations show, tell and destroy, and the buttons of its bar.
 */
class TestNavigation final : public Suite
{
    Q_OBJECT

private Q_SLOTS:
    // What works
    void pushingCoversWhatIsBelow();
    void poppingShowsWhatIsBelow();
    void poppingToTheRoot();
    void buttonsOfTheBar();
    void newRootEmptiesTheStack();

    // What goes wrong
    void nothingToPlaceOn();
};

namespace {

// A controller of 400 by 300 with its bar and a root called "Root", and views to push.
class Stack final
{
public:
    Stack()
    {
        registerHalvoraTypes();
        view.rootContext()->setContextProperty("currentTheme"_s, &theme);
        view.resize(400, 300);
        QQmlComponent component(view.engine());
        component.setData(
            "import com.kestrum.halvoraint 1.0\nNavigationController { width: 400; height: 300 }", QUrl());
        controller = qobject_cast<NavigationController *>(component.create());
        view.setContent(QUrl(), &component, controller);
        controller->initNavigationBar();
        root = newView("Root"_s);
        controller->setRootView(root);
        log.watch(controller, "stack"_s);
    }

    // A view that leaves the stack is deleted by it, the rest with this.
    NavigationView *newView(const QString &title)
    {
        auto *made = new NavigationView;
        made->setParent(&views);
        made->setTitle(title);
        log.watch(made, title);
        return made;
    }

    // What the stack's own classes have told since the last call.
    QStringList told()
    {
        static const QRegularExpression ours("\\.(title|rootView|navigationBar|currentIndex)Changed$|"
                                             "\\.(presented|dismissed|close)$"_s);
        return log.take().filter(ours);
    }

    // The bar as it can be seen: title, back text and whether back shows.
    QString bar() const
    {
        const QObject *bar = controller->navigationBar();
        return "%1|%2|%3"_s.arg(bar->property("title").toString(), bar->property("backText").toString(),
                                bar->property("backVisible").toBool() ? "back"_s : "-"_s);
    }

    Theme theme;
    QObject views;
    QQuickView view;
    SignalLog log;
    NavigationController *controller = nullptr; // of the window
    NavigationView *root = nullptr;
};

} // namespace

void TestNavigation::pushingCoversWhatIsBelow()
{
    Stack stack;
    QCOMPARE(stack.bar(), "Root||-"_s);
    NavigationView *a = stack.newView("A"_s);
    stack.told();
    stack.controller->pushView(a);
    QCOMPARE(stack.told(), (QStringList{"Root.dismissed"_s, "A.titleChanged"_s, "A.presented"_s}));
    QCOMPARE(stack.bar(), "A|Root|back"_s);
    QCOMPARE(QRectF(a->position(), a->size()), QRectF(0, 44, 400, 256));
    QVERIFY(a->isVisible() && stack.root->isVisible() && a->parentItem() == stack.controller);
    stack.controller->setSize({500, 500});
    QCOMPARE(a->size(), QSizeF(400, 256));
    QCOMPARE(stack.controller->currentIndex(), -1);
}

void TestNavigation::poppingShowsWhatIsBelow()
{
    Stack stack;
    QPointer<NavigationView> a = stack.newView("A"_s);
    QPointer<NavigationView> b = stack.newView("B"_s);
    Q_EMIT stack.root->pushView(a); // as views ask for it
    Q_EMIT a->pushView(b);
    QCOMPARE(stack.bar(), "B|A|back"_s);
    stack.told();
    Q_EMIT b->popLastView();
    QCOMPARE(stack.told(), (QStringList{"B.dismissed"_s, "A.presented"_s}));
    QCOMPARE(stack.bar(), "A|A|back"_s); // its own name, on purpose
    QVERIFY(b && !b->isVisible() && !b->parentItem());
    QTRY_VERIFY(!b);
    Q_EMIT stack.root->popLastView(); // a root cannot ask to be popped
    QCOMPARE(stack.bar(), "A|A|back"_s);
    stack.controller->popLastView();
    QCOMPARE(stack.bar(), "Root|Root|-"_s);
    QTRY_VERIFY(!a);
}

void TestNavigation::poppingToTheRoot()
{
    Stack stack;
    QPointer<NavigationView> a = stack.newView("A"_s);
    QPointer<NavigationView> b = stack.newView("B"_s);
    stack.controller->pushView(a);
    stack.controller->pushView(b);
    stack.told();
    stack.controller->popToRootView();
    QCOMPARE(stack.told(), (QStringList{"B.dismissed"_s, "A.dismissed"_s, "Root.presented"_s}));
    QCOMPARE(stack.bar(), "Root||-"_s);
    QTRY_VERIFY(!a && !b);
    stack.controller->navigationBar()->setProperty("backText", "kept"_s);
    stack.controller->popLastView(); // the root stays
    stack.controller->popToRootView();
    stack.controller->pushView(nullptr);
    QCOMPARE(stack.told(), QStringList());
    QCOMPARE(stack.bar(), "Root|kept|-"_s);
}

void TestNavigation::buttonsOfTheBar()
{
    Stack stack;
    stack.controller->pushView(stack.newView("A"_s));
    stack.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stack.view));
    stack.told();
    QTest::mouseClick(&stack.view, Qt::LeftButton, {}, QPoint(20, 22));
    QCOMPARE(stack.bar(), "Root|Root|-"_s);
    QTest::mouseClick(&stack.view, Qt::LeftButton, {}, QPoint(380, 22));
    QCOMPARE(stack.told(), (QStringList{"A.dismissed"_s, "Root.presented"_s, "stack.close"_s}));
    QTest::mouseClick(&stack.view, Qt::LeftButton, {}, QPoint(20, 22)); // where back was
    QCOMPARE(stack.told(), QStringList());
}

void TestNavigation::newRootEmptiesTheStack()
{
    Stack stack;
    QPointer<NavigationView> a = stack.newView("A"_s);
    stack.controller->pushView(a);
    NavigationView *other = stack.newView("Other"_s);
    stack.told();
    stack.controller->setRootView(other);
    QCOMPARE(stack.told(), (QStringList{"stack.rootViewChanged"_s, "Other.presented"_s}));
    QCOMPARE(stack.bar(), "Other|Root|back"_s); // the back button is left as it was
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(a && !a->isVisible() && !a->parentItem() && !stack.root->isVisible());
}

void TestNavigation::nothingToPlaceOn()
{
    NavigationController bare;
    NavigationView view;
    bare.initRootView();
    bare.pushView(&view);
    bare.setRootView(&view);
    bare.setRootView(nullptr);
    QVERIFY(!view.parentItem() && !bare.rootView());
}

HALVORA_SUITE_MAIN(TestNavigation)

#include "tst_navigation.moc"
