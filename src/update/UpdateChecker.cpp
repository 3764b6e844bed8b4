// The online version check and the launch of the updater.

#include "update/UpdateChecker.h"

#include <cctype>
#include <charconv>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QProcess>
#include <QSettings>
#include <QTimer>

#include "ui/Messages.h"
#include "ui/SettingsKeys.h"

namespace velmora::update {

double parseVersionText(const QByteArray& text)
{
    // "%lf" without the process locale: blanks skipped, an optional sign, then the longest number.
    const char* p = text.constData();
    const char* end = p + text.size();
    while (p != end && std::isspace(static_cast<unsigned char>(*p)))
        ++p;
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
    double version = 0.0;
    const auto [stop, error] = std::from_chars(p, end, version);
    if (error != std::errc() || stop == p)
        return ProgramVersion;
    return negative ? -version : version;
}

UpdateDecision decideUpdate(double publishedVersion)
{
    return publishedVersion > ProgramVersion ? UpdateDecision::OfferUpdate
                                             : UpdateDecision::LatestVersion;
}

QString updaterPath()
{
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("aupd.exe");
#else
    const QString name = QStringLiteral("aupd");
#endif
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

namespace {

UpdateChecker::Actions defaultActions()
{
    UpdateChecker::Actions a;
    a.askUpdate = [](QWidget* parent) {
        QMessageBox box(QMessageBox::Question, QStringLiteral("New Version Available"),
                        ui::messageText(ui::MsgNewVersionAvailable),
                        QMessageBox::Yes | QMessageBox::No, parent);
        return box.exec() == QMessageBox::Yes;
    };
    a.showMessage = [](QWidget* parent, int id) { ui::showMessage(parent, id); };
    a.startUpdater = [](const QString& program) {
        return QProcess::startDetached(program, {}, QFileInfo(program).absolutePath());
    };
    return a;
}

} // namespace

UpdateChecker::UpdateChecker() : m_actions(defaultActions()) {}

UpdateChecker::UpdateChecker(Actions actions) : m_actions(std::move(actions))
{
    const Actions defaults = defaultActions();
    if (!m_actions.askUpdate)
        m_actions.askUpdate = defaults.askUpdate;
    if (!m_actions.showMessage)
        m_actions.showMessage = defaults.showMessage;
    if (!m_actions.startUpdater)
        m_actions.startUpdater = defaults.startUpdater;
}

QUrl UpdateChecker::versionUrl()
{
    return QUrl(
        QSettings().value(ui::settings::VersionUrl, ui::settings::DefaultVersionUrl).toString());
}

QString UpdateChecker::downloadPath()
{
    return QDir(QDir::tempPath()).filePath(QStringLiteral("version.txt"));
}

bool UpdateChecker::download(const QUrl& url)
{
    QFile out(downloadPath());
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;

    QNetworkAccessManager network;
    QNetworkRequest request(url);
    request.setTransferTimeout(m_timeoutMs);
    QNetworkReply* reply = network.get(request);

    QEventLoop loop;
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
    timeout.start(m_timeoutMs);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);

    bool received = false;
    if (reply->isFinished() && reply->error() == QNetworkReply::NoError) {
        out.write(reply->readAll());
        received = true;
    } else {
        reply->abort();
    }
    reply->deleteLater();
    out.close();
    return received;
}

UpdateChecker::Outcome UpdateChecker::run(QWidget* parent)
{
    download(versionUrl());

    double published = ProgramVersion;
    QFile in(downloadPath());
    if (in.open(QIODevice::ReadOnly))
        published = parseVersionText(in.readAll());

    if (decideUpdate(published) == UpdateDecision::LatestVersion) {
        m_actions.showMessage(parent, ui::MsgLatestVersion);
        return Outcome::LatestVersion;
    }
    if (!m_actions.askUpdate(parent))
        return Outcome::Declined;

    const QString updater = updaterPath();
    if (m_actions.startUpdater(updater))
        return Outcome::UpdaterStarted;
    // A broken updater is removed so that the next installation brings a fresh one.
    QFile::remove(updater);
    m_actions.showMessage(parent, ui::MsgUpdateProcessFailed);
    return Outcome::UpdaterFailed;
}

} // namespace velmora::update
