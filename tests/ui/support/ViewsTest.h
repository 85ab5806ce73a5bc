#pragma once

#include "ui/support/SampleLibrary.h"
#include "ui/support/WindowFixture.h"

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <algorithm>

namespace ovrin {

/// The whole interface over a library; every QML warning fails the test.
class ViewsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        s_warnings = &m_warnings;
        m_previous = qInstallMessageHandler(collect);
        fixture.flags.setFlag(u"didSeedSampleRecipes"_qs, true);
        fixture.appearance.setMotionReduced(true);
    }
    void TearDown() override
    {
        root.reset();
        qInstallMessageHandler(m_previous);
        s_warnings = nullptr;
        // Offscreen has no fonts to choose from in some places and says so.
        m_warnings.removeIf([](const QString& text) { return text.contains(u"QFont"_qs); });
        EXPECT_TRUE(m_warnings.isEmpty()) << qPrintable(m_warnings.join(u'\n'));
    }

    void open(int width = 1180, int height = 820)
    {
        model = fixture.makeWindow();
        engine = std::make_unique<QQmlEngine>();
        fixture.prepare(*engine);
        QQmlComponent component(engine.get(), mainWindowUrl());
        ASSERT_TRUE(component.isReady()) << qPrintable(component.errorString());
        root.reset(component.createWithInitialProperties(fixture.windowProperties(*model)));
        window = qobject_cast<QQuickWindow*>(root.get());
        ASSERT_TRUE(window);
        window->resize(width, height);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void openFirst()
    {
        model->openRecipe(model->library()->index(0).data(LibraryModel::RecipeIdRole).toString());
    }
    QQuickItem* item(const QString& name) { return window->findChild<QQuickItem*>(name); }
    QList<QQuickItem*> items(const QString& name)
    {
        // Delegates are children in the scene, not in the tree of objects.
        QList<QQuickItem*> found;
        QList<QQuickItem*> queue{window->contentItem()};
        while (!queue.isEmpty()) {
            QQuickItem* const next = queue.takeFirst();
            if (next->objectName() == name)
                found.append(next);
            queue.append(next->childItems());
        }
        std::sort(found.begin(), found.end(), [](QQuickItem* a, QQuickItem* b) {
            return a->mapToScene(QPointF()).y() < b->mapToScene(QPointF()).y();
        });
        return found;
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window, key, modifiers);
        QCoreApplication::processEvents();
    }
    void type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(window, c.toLatin1());
        QCoreApplication::processEvents();
    }
    QQuickItem* focused() { return window->activeFocusItem(); }

    WindowFixture fixture;
    std::unique_ptr<LibraryWindow> model;
    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QObject> root;
    QQuickWindow* window = nullptr;

private:
    static void collect(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (s_warnings && type >= QtWarningMsg)
            s_warnings->append(text);
    }

    static inline QStringList* s_warnings = nullptr;
    QStringList m_warnings;
    QtMessageHandler m_previous = nullptr;
};

} // namespace ovrin
