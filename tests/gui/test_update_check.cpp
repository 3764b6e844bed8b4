// The update check against a small HTTP server on 127.0.0.1, the version rule, and the
// delete confirmation.

#include <QCheckBox>
#include <QLabel>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include "ui/Messages.h"
#include "ui/SettingsKeys.h"
#include "update/UpdateChecker.h"
#include "test_app_support.h"
#include "GuiTestSupport.h"

using namespace velmora;
using velmora::test::click;
using velmora::test::ModalScript;

namespace {

// Answers every GET with the given body.
class VersionServer : public QObject
{
public:
    explicit VersionServer(QByteArray body) : m_body(std::move(body))
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                    m_request += socket->readAll();
                    if (!m_request.contains("\r\n\r\n"))
                        return;
                    ++m_requests;
                    socket->write(
                        "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nConnection: close\r\n"
                        "Content-Length: " +
                        QByteArray::number(m_body.size()) + "\r\n\r\n" + m_body);
                    socket->disconnectFromHost();
                });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }

    bool listen() { return m_server.listen(QHostAddress::LocalHost); }
    QString url() const
    {
        return QStringLiteral("http://127.0.0.1:%1/version.txt").arg(m_server.serverPort());
    }
    int requests() const { return m_requests; }
    const QByteArray& request() const { return m_request; }

private:
    QTcpServer m_server;
    QByteArray m_body;
    QByteArray m_request;
    int m_requests = 0;
};

// Records what the check would show and answers the question.
struct Recorder
{
    bool answer = false;
    bool updaterStarts = true;
    int questions = 0;
    QList<int> messages;
    QStringList started;

    update::UpdateChecker::Actions actions()
    {
        update::UpdateChecker::Actions a;
        a.askUpdate = [this](QWidget*) {
            ++questions;
            return answer;
        };
        a.showMessage = [this](QWidget*, int id) { messages.append(id); };
        a.startUpdater = [this](const QString& program) {
            started.append(program);
            return updaterStarts;
        };
        return a;
    }
};

} // namespace

class TestUpdateCheck : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_settings.isValid());
        test::usePrivateSettings(m_settings.path());
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

    void versionTextIsReadLikePercentLf_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("version");
        QTest::addColumn<bool>("offered");
        QTest::newRow("newer") << QByteArray("131.5") << 131.5 << true;
        QTest::newRow("same") << QByteArray("131") << 131.0 << false;
        QTest::newRow("older") << QByteArray("130.99") << 130.99 << false;
        QTest::newRow("blanks and a line end") << QByteArray("  \t132\r\n") << 132.0 << true;
        QTest::newRow("trailing text") << QByteArray("131.25 beta") << 131.25 << true;
        QTest::newRow("exponent") << QByteArray("1.32e2") << 132.0 << true;
        QTest::newRow("signed") << QByteArray("+133") << 133.0 << true;
        QTest::newRow("negative") << QByteArray("-200") << -200.0 << false;
        QTest::newRow("not a number") << QByteArray("<html>Not Found</html>") << 131.0 << false;
        QTest::newRow("empty") << QByteArray() << 131.0 << false;
        QTest::newRow("only a point") << QByteArray(".") << 131.0 << false;
    }

    void versionTextIsReadLikePercentLf()
    {
        QFETCH(QByteArray, text);
        QFETCH(double, version);
        QFETCH(bool, offered);
        QCOMPARE(update::parseVersionText(text), version);
        QCOMPARE(update::decideUpdate(update::parseVersionText(text)) ==
                     update::UpdateDecision::OfferUpdate,
                 offered);
    }

    void checkAgainstLocalServer_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("questions");
        QTest::addColumn<QList<int>>("messages");
        QTest::newRow("131.5 offers the update") << QByteArray("131.5\n") << 1 << QList<int>{};
        QTest::newRow("131 is the latest")
            << QByteArray("131") << 0 << QList<int>{ui::MsgLatestVersion};
    }

    void checkAgainstLocalServer()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, questions);
        QFETCH(QList<int>, messages);
        VersionServer server(body);
        QVERIFY(server.listen());
        QSettings().setValue(ui::settings::VersionUrl, server.url());

        Recorder recorder; // answers No
        update::UpdateChecker checker(recorder.actions());
        const auto outcome = checker.run(nullptr);
        QCOMPARE(server.requests(), 1);
        QVERIFY(server.request().startsWith("GET /version.txt "));
        QCOMPARE(recorder.questions, questions);
        QCOMPARE(recorder.messages, messages);
        QCOMPARE(outcome, questions ? update::UpdateChecker::Outcome::Declined
                                    : update::UpdateChecker::Outcome::LatestVersion);
        QVERIFY(recorder.started.isEmpty());
        // The response went to "version.txt" in the temporary folder.
        QFile saved(update::UpdateChecker::downloadPath());
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), body);
    }

    void yesStartsTheUpdaterOrReportsItsFailure()
    {
        VersionServer server("140");
        QVERIFY(server.listen());
        QSettings().setValue(ui::settings::VersionUrl, server.url());

        Recorder starts;
        starts.answer = true;
        QCOMPARE(update::UpdateChecker(starts.actions()).run(nullptr),
                 update::UpdateChecker::Outcome::UpdaterStarted);
        QCOMPARE(starts.started, QStringList{update::updaterPath()});
        QVERIFY(starts.messages.isEmpty());
        QCOMPARE(QFileInfo(update::updaterPath()).absolutePath(),
                 QCoreApplication::applicationDirPath());

        Recorder fails;
        fails.answer = true;
        fails.updaterStarts = false;
        QCOMPARE(update::UpdateChecker(fails.actions()).run(nullptr),
                 update::UpdateChecker::Outcome::UpdaterFailed);
        QCOMPARE(fails.messages, QList<int>{ui::MsgUpdateProcessFailed});
    }

    void theRealQuestionAsksWithItsCaption()
    {
        VersionServer server("131.5");
        QVERIFY(server.listen());
        QSettings().setValue(ui::settings::VersionUrl, server.url());
        ModalScript script;
        script.expect(QStringLiteral("New Version Available"),
                      [](QWidget* w) { click(w, QStringLiteral("No")); });
        QCOMPARE(update::UpdateChecker().run(nullptr), update::UpdateChecker::Outcome::Declined);
        QCOMPARE(script.messages(), QStringList{ui::messageText(ui::MsgNewVersionAvailable)});
    }

    void withoutAServerTheLatestVersionIsReported()
    {
        // A port that was just free: nothing listens there.
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost));
        const quint16 port = probe.serverPort();
        probe.close();
        QSettings().setValue(ui::settings::VersionUrl,
                             QStringLiteral("http://127.0.0.1:%1/version.txt").arg(port));

        // A stale file from an earlier check must not count.
        QFile stale(update::UpdateChecker::downloadPath());
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.write("999");
        stale.close();

        Recorder recorder;
        update::UpdateChecker checker(recorder.actions());
        checker.setTimeout(3000);
        QCOMPARE(checker.run(nullptr), update::UpdateChecker::Outcome::LatestVersion);
        QCOMPARE(recorder.messages, QList<int>{ui::MsgLatestVersion});
        QCOMPARE(recorder.questions, 0);
    }

    // The delete question: its box switches the questions off, unless the question is one that
    // is always asked.
    void deleteConfirmation_data()
    {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<bool>("always"); // asked even with the questions switched off
        QTest::addColumn<bool>("tick");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<bool>("enabledAfter");
        QTest::newRow("ticked, Yes") << true << false << true << true << false;
        QTest::newRow("box left empty, No") << true << false << false << false << true;
        QTest::newRow("always asked, without the box") << false << true << false << false << false;
    }

    void deleteConfirmation()
    {
        QFETCH(bool, enabled);
        QFETCH(bool, always);
        QFETCH(bool, tick);
        QFETCH(bool, yes);
        QFETCH(bool, enabledAfter);
        ui::setDeleteConfirmationsEnabled(enabled);
        bool boxShown = always;
        QString text;
        ModalScript script;
        script.expect(QStringLiteral("Delete Confirmation"), [&](QWidget* w) {
            auto* box = w->findChild<QCheckBox*>();
            boxShown = box->isVisibleTo(w);
            QCOMPARE(box->text(), QStringLiteral("Disable Delete Confirmations"));
            for (QLabel* label : w->findChildren<QLabel*>())
                text += label->text();
            if (tick)
                test::toggle(box);
            click(w, yes ? QStringLiteral("Yes") : QStringLiteral("No"));
        });
        QCOMPARE(ui::confirmDelete(nullptr, ui::MsgDeleteRoutine, always), yes);
        QCOMPARE(boxShown, !always);
        QCOMPARE(text, ui::messageText(ui::MsgDeleteRoutine));
        QCOMPARE(ui::deleteConfirmationsEnabled(), enabledAfter);
        // Switched off: yes at once, no dialog.
        if (!enabledAfter)
            QVERIFY(ui::confirmDelete(nullptr, ui::MsgDeleteExercise));
        QCOMPARE(script.unexpected(), QStringList());
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TestUpdateCheck)
#include "test_update_check.moc"
