#include "sync/SyncDialog.h"

#include <vector>

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "model/Clock.h"
#include "model/Store.h"
#include "sync/logic/HandheldFolder.h"
#include "sync/logic/KorvelStore.h"
#include "sync/logic/TandryStore.h"
#include "ui/AppContext.h"
#include "ui/Messages.h"
#include "ui/QtText.h"

namespace velmora::sync {

namespace {

// The user names of the handheld's shared file; none when the file is missing or damaged (the
// sync itself then says what is wrong).
template <class Store> std::vector<std::string> handheldUserNames(const std::filesystem::path& dir)
{
    Store store(handheldFolder(dir));
    if (!store.readShared())
        return {};
    return store.shared.userNames;
}

int questionId(Handheld handheld, SyncDirection direction)
{
    const bool exporting = direction == SyncDirection::Export;
    if (handheld == Handheld::Tandry)
        return exporting ? ui::MsgSyncExportTandry : ui::MsgSyncImportTandry;
    return exporting ? ui::MsgSyncExportKorvel : ui::MsgSyncImportKorvel;
}

} // namespace

SyncDialog::SyncDialog(ui::AppContext& context, Handheld handheld, QWidget* parent)
    : QDialog(parent), m_context(context), m_handheld(handheld)
{
    setObjectName(QStringLiteral("syncDialog"));
    setWindowTitle(handheld == Handheld::Tandry ? QStringLiteral("Tandry Sync")
                                                : QStringLiteral("Korvel Sync"));

    auto* local = new QGroupBox(QStringLiteral("Local User"), this);
    auto* name = new QLineEdit(ui::toQt(context.store().currentUserName()), local);
    name->setObjectName(QStringLiteral("localUser"));
    name->setReadOnly(true);
    // The dialog opens with the handheld users in focus: the name here is only shown.
    name->setFocusPolicy(Qt::NoFocus);
    auto* localLayout = new QVBoxLayout(local);
    localLayout->addWidget(name);

    auto* handheldGroup = new QGroupBox(QStringLiteral("PDA User (click to select)"), this);
    m_users = new QListWidget(handheldGroup);
    m_users->setObjectName(QStringLiteral("handheldUsers"));
    m_users->setSelectionMode(QAbstractItemView::SingleSelection);
    auto* handheldLayout = new QVBoxLayout(handheldGroup);
    handheldLayout->addWidget(m_users);

    m_export = new QRadioButton(QStringLiteral("Export my desktop settings onto my PDA"), this);
    m_export->setObjectName(QStringLiteral("exportChoice"));
    m_import = new QRadioButton(QStringLiteral("Import my PDA settings here"), this);
    m_import->setObjectName(QStringLiteral("importChoice"));

    auto* buttons = new QDialogButtonBox(this);
    m_sync = buttons->addButton(QStringLiteral("Sync"), QDialogButtonBox::AcceptRole);
    m_sync->setObjectName(QStringLiteral("sync"));
    m_sync->setDefault(true);
    QPushButton* cancel =
        buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancel"));
    // Only "Sync" runs anything; the box's accepted signal is not used.
    connect(m_sync, &QPushButton::clicked, this, &SyncDialog::runSync);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(local);
    layout->addWidget(new QLabel(QStringLiteral("Sync with..."), this));
    layout->addWidget(handheldGroup, 1);
    layout->addWidget(m_export);
    layout->addWidget(m_import);
    layout->addWidget(buttons);

    fillHandheldUsers();
    connect(m_users, &QListWidget::itemSelectionChanged, this, &SyncDialog::updateEnabling);
    updateEnabling();
    resize(360, 380);
}

void SyncDialog::fillHandheldUsers()
{
    const std::filesystem::path& dir = m_context.store().dataDir();
    const std::vector<std::string> names = m_handheld == Handheld::Tandry
                                               ? handheldUserNames<TandryStore>(dir)
                                               : handheldUserNames<KorvelStore>(dir);
    for (std::size_t k = 0; k < names.size(); ++k) {
        auto* item = new QListWidgetItem(ui::toQt(names[k]), m_users);
        item->setData(Qt::UserRole, static_cast<qulonglong>(k));
    }
}

std::optional<std::size_t> SyncDialog::chosenHandheldUser() const
{
    if (m_users->count() == 0)
        return 0;
    const QList<QListWidgetItem*> chosen = m_users->selectedItems();
    if (chosen.isEmpty())
        return std::nullopt;
    return static_cast<std::size_t>(chosen.front()->data(Qt::UserRole).toULongLong());
}

void SyncDialog::updateEnabling()
{
    m_sync->setEnabled(chosenHandheldUser().has_value());
}

void SyncDialog::runSync()
{
    const std::optional<std::size_t> user = chosenHandheldUser();
    if (!user)
        return;
    model::Store& store = m_context.store();
    const auto userFile = store.userFilePath(store.shared.currentUser);
    if (!userFile) {
        ui::showMessageText(this, QStringLiteral("The desktop user has no file in the data "
                                                 "folder; nothing was synchronised."));
        return;
    }

    SyncRequest request;
    request.handheld = m_handheld;
    request.direction = chosenDirection(m_export->isChecked());
    request.dataDir = store.dataDir();
    request.userFile = *userFile;
    request.handheldUser = *user;
    request.now = model::now();
    // Everything is read and converted before the question, so that a sync that cannot run is
    // refused without asking to delete anything.
    SyncOperation op =
        SyncOperation::prepare(request, store.shared, store.journal, store.foods.catalogue());
    if (op.refused()) {
        if (op.refusal() == SyncOperation::Refusal::Version)
            ui::showMessage(this, ui::MsgHandheldVersion);
        else
            ui::showMessageText(this, QString::fromStdString(op.refusalText()));
        reject();
        return;
    }

    // The question, then what the receiving side holds before and after, e.g.
    // "Journal days: 120 -> 95", so that "Yes" is answered knowing what goes.
    QString question = ui::messageText(questionId(m_handheld, request.direction));
    question += QStringLiteral("\n");
    for (const std::string& line : op.changeLines())
        question += QStringLiteral("\n") + QString::fromStdString(line);
    // Named before the copy exists: once made, the name would be taken.
    const QString copyName = QString::fromStdString(op.copyFolder().filename().string());
    if (request.direction == SyncDirection::Import) {
        question += QStringLiteral("\n\nA copy of your current data is kept in the folder \"%1\" "
                                   "in your data folder.")
                        .arg(copyName);
    }
    if (!ui::askYesNoText(this, question))
        return;

    if (model::Status s = op.apply(store.shared, store.journal); !s) {
        ui::showMessageText(this, QString::fromStdString(s.error().message()));
        reject();
        return;
    }
    if (request.direction == SyncDirection::Import) {
        saveImported();
        const QString from =
            m_handheld == Handheld::Tandry ? QStringLiteral("Tandry") : QStringLiteral("Korvel");
        m_context.showStatus(
            QStringLiteral("Imported from %1 (%2); your previous data are in the folder \"%3\".")
                .arg(from, ui::toQt(op.summary().handheldUser), copyName));
    } else {
        m_context.showStatus(QStringLiteral("The handheld's files were written."));
    }
    accept();
}

void SyncDialog::saveImported()
{
    model::Store& store = m_context.store();
    store.normalise();
    model::Status saved = store.saveCurrentUser();
    if (saved)
        saved = store.saveShared();
    if (!saved)
        ui::showMessageText(this, QString::fromStdString(saved.error().message()));
    m_context.notifyChanged(ui::Change::Everything);
    m_context.refreshAllPages();
}

} // namespace velmora::sync
