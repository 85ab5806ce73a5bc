#pragma once

#include "app/support/Desktop.h"
#include "app/support/ScreenReader.h"

#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>

namespace ovrin::testing {

/// The program as it is installed, seen and worked through a screen reader.
class ProgramTest : public ::testing::Test
{
protected:
    static constexpr int patience = 60'000;

    void TearDown() override
    {
        if (HasFailure())
            ADD_FAILURE() << qPrintable(described(seen)) << '\n' << program.readAll().constData();
        program.terminate();
        program.waitForFinished();
    }

    void start(const QStringList& arguments = {})
    {
        ASSERT_TRUE(reader.isReady());
        program.setProgram(QStringLiteral(OVRIN_PROGRAM));
        program.setArguments(arguments);
        program.setProcessEnvironment(desktop.environment());
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        program.start();
        ASSERT_TRUE(program.waitForStarted());
    }

    /// Starts the program once more beside itself. How that ended.
    int startAgain(const QStringList& arguments)
    {
        QProcess second;
        second.setProcessEnvironment(desktop.environment());
        second.start(QStringLiteral(OVRIN_PROGRAM), arguments);
        return second.waitForFinished(patience) ? second.exitCode() : -1;
    }

    /// Reads the screen until `isThere` finds what it looks for.
    bool until(const std::function<bool()>& isThere)
    {
        return QTest::qWaitFor(
            [&] {
                seen = reader.everything();
                return isThere();
            },
            patience);
    }
    bool isWithin(qsizetype node, const QString& container) const
    {
        for (; node >= 0; node = seen.at(node).parent)
            if (seen.at(node).name == container)
                return true;
        return container.isEmpty();
    }
    /// What is showing under that name, or nothing. `container` is the name of something around it.
    std::optional<Accessible> find(const QString& name, const QString& container = {}) const
    {
        for (qsizetype i = 0; i < seen.size(); ++i)
            if (seen.at(i).name == name && isWithin(seen.at(i).parent, container))
                return seen.at(i);
        return std::nullopt;
    }
    bool appears(const QString& name, const QString& container = {})
    {
        return until([&] { return find(name, container).has_value(); });
    }
    bool disappears(const QString& name, const QString& container = {})
    {
        return until([&] { return !find(name, container); });
    }
    /// Presses what is called so, as soon as it is there and can be pressed.
    bool press(const QString& name, const QString& container = {})
    {
        std::optional<Accessible> control;
        return until([&] {
                   for (qsizetype i = 0; i < seen.size() && !control; ++i)
                       if (seen.at(i).name == name && seen.at(i).canBePressed() &&
                           seen.at(i).is(Accessible::Enabled) && isWithin(seen.at(i).parent, container))
                           control = seen.at(i);
                   return control.has_value();
               }) &&
               reader.press(*control);
    }
    bool focuses(const QString& name)
    {
        return until([&] {
            return std::any_of(seen.begin(), seen.end(), [&](const Accessible& node) {
                return node.name == name && node.is(Accessible::Focused);
            });
        });
    }
    /// Strikes the key until that has the keyboard.
    bool goesTo(const QString& name, const QString& key)
    {
        const auto focused = [&] {
            const auto node = std::find_if(seen.rbegin(), seen.rend(), [](const Accessible& each) {
                return each.is(Accessible::Focused);
            });
            return node == seen.rend() ? Accessible() : *node;
        };
        for (int strikes = 0; focused().name != name && strikes < 60; ++strikes) {
            const QString before = focused().path;
            if (!desktop.strike({key}) || !until([&] { return focused().path != before; }))
                return false;
        }
        return focused().name == name;
    }
    bool write(const QString& field, const QString& text, const QString& container = {})
    {
        std::optional<Accessible> target;
        return until([&] {
                   for (qsizetype i = 0; i < seen.size() && !target; ++i)
                       if (seen.at(i).name == field && seen.at(i).is(Accessible::Editable) &&
                           isWithin(seen.at(i).parent, container))
                           target = seen.at(i);
                   return target.has_value();
               }) &&
               reader.write(*target, text);
    }

    Desktop desktop;
    ScreenReader reader{desktop.sessionBus()};
    QProcess program;
    QList<Accessible> seen;
};

} // namespace ovrin::testing
