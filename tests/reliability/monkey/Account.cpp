// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/Account.h"

#include "analysis/Frmanalisis.h"
#include "base/NumberText.h"
#include "square/editor/Formeditor.h"

#include <QTableView>

#include <algorithm>
#include <utility>

namespace monkey {

namespace {

const QString wantsToSave = QStringLiteral("Desea guardar");
const QString changedElsewhere = QStringLiteral("cambió desde");
const QString refusedText = QStringLiteral("Celda: ");

QString prefix(const Window& window, const char* name)
{
    const auto* edit = window.child->findChild<QLineEdit*>(QString::fromLatin1(name));
    return edit == nullptr ? QString() : edit->text();
}

Window::Kind kindOf(const window::ChildWindow& child)
{
    if (qobject_cast<const square::TEditor*>(&child) != nullptr)
        return Window::Kind::Editor;
    return qobject_cast<const analysis::TAnalisis*>(&child) != nullptr ? Window::Kind::Analysis
                                                                       : Window::Kind::Other;
}

} // namespace

QString Window::name() const
{
    static const char* const kinds[] = {"editor", "analysis", "window"};
    return QStringLiteral("%1 %2")
        .arg(QString::fromLatin1(kinds[static_cast<int>(kind)]))
        .arg(number);
}

Table shown(const Window& window)
{
    const record::SquareData& square = window.grid()->square();
    Table table;
    table.columns = square.NrOfColumns();
    table.rows = square.NrOfRows();
    table.identifier = square.Identifier();
    table.rowPrefix = prefix(window, "NFilas");
    table.columnPrefix = prefix(window, "NColumnas");
    for (int row = 1; row <= std::min(table.rows, Table::most); ++row) {
        for (int column = 1; column <= std::min(table.columns, Table::most); ++column)
            table.set(column, row, square.value(column, row));
    }
    return table;
}

std::vector<int> looksOf(const Window& window)
{
    const auto& model = static_cast<const grid::TableModel&>(*window.grid()->model());
    std::vector<int> looks;
    model.table().range().forEachCell([&](int column, int row) {
        looks.push_back(model.table().marks(column, row));
        looks.push_back(model.table().precision(column));
    });
    return looks;
}

std::vector<grid::TableShape> shapesOf(const Window& window)
{
    std::vector<grid::TableShape> shapes;
    for (const grid::TNTabEd* table : window.child->findChildren<grid::TNTabEd*>())
        shapes.push_back(table->shape());
    return shapes;
}

Window* Account::windowOf(const QWidget* child) const
{
    for (const auto& window : m_windows) {
        if (child != nullptr && window->child == child)
            return window.get();
    }
    return nullptr;
}

QStringList Account::settle(const Deed& deed, const QList<window::ChildWindow*>& children)
{
    m_wrong.clear();
    m_saves.clear();
    m_namedFile.clear();
    bool isRefused = false; // the cell of the target, and with it the command
    for (const auto& window : m_windows) {
        const bool staysOpen = settleCell(*window, deed);
        isRefused = isRefused || (staysOpen && window.get() == deed.target);
    }
    const bool isDone = deed.target != nullptr && !isRefused;
    if (isDone)
        deed.effect(*deed.target);
    for (const auto& window : m_windows)
        settleQuestions(*window, isDone && deed.savesSquare && window.get() == deed.target);
    checkFiles();
    adopt(children);
    for (const auto& window : m_windows)
        compare(*window);
    return m_wrong;
}

/// What became of a text that stood in an open cell. @return whether it was refused and stays
bool Account::settleCell(Window& window, const Deed& deed)
{
    const Window::OpenCell cell = window.cell;
    if (cell.column == 0)
        return false;
    const bool isRefused = wasToldOfError(window, refusedText);
    if (cell.edit != nullptr && cell.edit->isVisibleTo(cell.edit->parentWidget()))
        return isRefused;
    window.cell = {};
    if ((deed.forgetsCell && deed.target == &window) || cell.text == cell.openedText)
        return false;
    const std::optional<double> number = typedNumber(cell.text);
    if (isRefused && isSure(cell.text))
        wrong(QStringLiteral("%1: the number «%2» was refused").arg(window.name(), cell.text));
    if (!isRefused && !number)
        wrong(QStringLiteral("%1: the text «%2» is gone without a word")
                  .arg(window.name(), cell.text));
    if (isRefused || !number)
        return false;
    Table after = window.memory.now;
    after.set(cell.column, cell.row, *number);
    window.memory.change(after);
    return false;
}

/// What the user was asked of a window, and whether it may have gone.
void Account::settleQuestions(Window& window, bool savesSquare)
{
    if (window.kind != Window::Kind::Editor)
        return;
    std::optional<window::Answer> toSave;
    for (const Exchange& exchange : exchangesOf(window)) {
        if (exchange.what == Exchange::What::YesNo && exchange.text.contains(wantsToSave))
            toSave = exchange.answer;
    }
    bool isSaved = window.memory.file.saved;
    if (savesSquare || toSave == window::Answer::Yes) {
        const std::optional<QString> name = savedAs(window);
        isSaved = name.has_value();
        if (savesSquare)
            m_namedFile = name.value_or(QString());
        const bool isThereAlready = name && window.memory.file.saved &&
                                    window.memory.file.name == *name &&
                                    m_folder.accepted(*name) == window.memory.file.bytes;
        if (name && !isThereAlready)
            keepSave(window, *name);
    }
    if (window.child == nullptr && !isSaved && toSave != window::Answer::No)
        wrong(QStringLiteral("%1: closed with observations that were neither saved nor given up")
                  .arg(window.name()));
}

/// Of two that saved under one name in one step, as on leaving, the later one has the file.
void Account::keepSave(Window& window, const QString& name)
{
    const QByteArray overwritten("what another has written over");
    Window*& last = m_saves[name];
    if (last == nullptr || timeOf(window) > timeOf(*last)) {
        if (last != nullptr)
            last->memory.file.bytes = overwritten;
        last = &window;
    }
    window.memory.file = {name, last == &window ? m_folder.read(name) : overwritten, true};
}

/// When in the step the user had last to do with a window.
std::size_t Account::timeOf(const Window& window) const
{
    std::size_t last = 0;
    for (std::size_t i = 0; i < m_dialogs.exchanges().size(); ++i) {
        if (m_dialogs.exchanges()[i].asker == window.identity)
            last = i + 1;
    }
    return last;
}

/// The file that the square was saved in, by what the user was asked; nothing where it was not.
std::optional<QString> Account::savedAs(Window& window)
{
    const SquareMemory::File& file = window.memory.file;
    const QByteArray onDisk = m_folder.accepted(file.name);
    const bool canCompare = !onDisk.isEmpty() && !file.bytes.isEmpty();
    if (file.saved && canCompare && onDisk == file.bytes)
        return file.name;
    QString name = file.name;
    bool isAgreed = !canCompare || onDisk == file.bytes;
    bool hasFailed = name.isEmpty();
    for (const Exchange& exchange : exchangesOf(window)) {
        if (exchange.what == Exchange::What::YesNo && exchange.text.contains(changedElsewhere)) {
            if (exchange.answer == window::Answer::None)
                return std::nullopt;
            isAgreed = true;
            hasFailed = exchange.answer == window::Answer::No;
        } else if (exchange.what == Exchange::What::Save) {
            if (exchange.answer == window::Answer::None)
                return std::nullopt;
            name = exchange.text;
            hasFailed = false;
        } else if (exchange.what == Exchange::What::Error) {
            hasFailed = true;
        }
    }
    if (hasFailed)
        return std::nullopt;
    if (!isAgreed)
        wrong(QStringLiteral("%1: replaced what another wrote to %2, unasked")
                  .arg(window.name(), name));
    return name;
}

/// Every file must hold what was last saved there, and nothing else may be on the disk.
void Account::checkFiles()
{
    for (const auto& [name, window] : m_saves) {
        const std::optional<Table> read = readSquare(m_folder.read(name));
        Table wanted = window->memory.now;
        for (double& value : wanted.store)
            value = asInFile(value);
        const QString differs =
            read ? difference(*read, wanted) : QStringLiteral("there is no square in it");
        if (!differs.isEmpty())
            wrong(QStringLiteral("%1: saved in %2, but %3").arg(window->name(), name, differs));
        m_folder.accept(name);
    }
    for (const QString& name : m_folder.changed()) {
        // Reports, tables and pictures go where their user said, perhaps with another suffix.
        bool isAsked = false;
        for (const Exchange& exchange : m_dialogs.exchanges()) {
            const Window* asker = windowOf(exchange.asker);
            isAsked = isAsked || (exchange.what == Exchange::What::Save &&
                                  (asker == nullptr || asker->kind != Window::Kind::Editor) &&
                                  exchange.answer == window::Answer::Yes &&
                                  name.startsWith(exchange.text.left(exchange.text.size() - 4)));
        }
        if (isAsked && !m_folder.read(name).isEmpty())
            m_folder.accept(name);
        else
            wrong(QStringLiteral("the file %1 changed, or came, or went").arg(name));
    }
}

/// Forgets the children that are gone and takes in those that came.
void Account::adopt(const QList<window::ChildWindow*>& children)
{
    std::erase_if(m_windows, [](const auto& window) { return window->child == nullptr; });
    for (window::ChildWindow* child : children) {
        if (windowOf(child) != nullptr)
            continue;
        auto window = std::make_unique<Window>();
        window->child = child;
        window->identity = child;
        window->kind = kindOf(*child);
        window->number = ++m_numbers;
        if (window->hasSquare()) {
            window->memory.now = shown(*window);
            QString name;
            if (const auto* editor = qobject_cast<const square::TEditor*>(child)) {
                name = editor->FileName();
                window->memory.file = {name, m_folder.accepted(name), !name.isEmpty()};
            } else {
                name = m_namedFile; // by "Guardar y Analizar"
                for (const Exchange& exchange : m_dialogs.exchanges())
                    name = exchange.what == Exchange::What::Open ? exchange.text : name;
            }
            const std::optional<Table> onDisk = readSquare(m_folder.accepted(name));
            const QString differs =
                difference(window->memory.now, name.isEmpty() ? Table() : onDisk.value_or(Table()));
            if (!differs.isEmpty())
                wrong(QStringLiteral("%1: opened %2 and shows %3")
                          .arg(window->name(), name, differs));
        }
        m_windows.push_back(std::move(window));
    }
}

void Account::compare(Window& window)
{
    if (!window.hasSquare())
        return;
    const Table table = shown(window);
    const Table& wanted = window.memory.now;
    const QString differs = difference(table, wanted);
    if (!differs.isEmpty())
        wrong(QStringLiteral("%1: shows %2").arg(window.name(), differs));
    if (table.identifier != wanted.identifier)
        wrong(QStringLiteral("%1: another title: «%2», not «%3»")
                  .arg(window.name(), QString::fromUtf8(table.identifier),
                       QString::fromUtf8(wanted.identifier)));
    if (table.rowPrefix != wanted.rowPrefix || table.columnPrefix != wanted.columnPrefix)
        wrong(QStringLiteral("%1: other names").arg(window.name()));
    if (const auto* editor = qobject_cast<const square::TEditor*>(window.child.data())) {
        if (editor->FileName() != window.memory.file.name)
            wrong(QStringLiteral("%1: another file: %2").arg(window.name(), editor->FileName()));
        if (editor->Saved() != window.memory.file.saved)
            wrong(QStringLiteral("%1: says that it is %2")
                      .arg(window.name(), editor->Saved()
                                              ? QStringLiteral("saved, which it is not")
                                              : QStringLiteral("not saved, which it is")));
    }
    window.looks = looksOf(window);
    window.shapes = shapesOf(window);
    lookAtCell(window);
}

void Account::lookAtCell(Window& window) const
{
    QLineEdit* open = nullptr;
    for (auto* edit : window.grid()->findChildren<QLineEdit*>(QStringLiteral("CellEditor"))) {
        if (edit->isVisibleTo(edit->parentWidget()))
            open = edit;
    }
    if (open == nullptr) {
        window.cell = {};
        return;
    }
    if (window.cell.edit != open) {
        const QModelIndex place = window.grid()->currentIndex();
        const double value = window.memory.now.value(place.column() + 1, place.row() + 1);
        window.cell = {open, place.column() + 1, place.row() + 1, base::fullText(value), {}};
    }
    window.cell.text = open->text();
}

std::vector<Exchange> Account::exchangesOf(const Window& window) const
{
    std::vector<Exchange> found;
    for (const Exchange& exchange : m_dialogs.exchanges()) {
        if (exchange.asker == window.identity && !exchange.text.contains(refusedText))
            found.push_back(exchange);
    }
    return found;
}

bool Account::wasToldOfError(const Window& window, const QString& part) const
{
    const auto& all = m_dialogs.exchanges();
    return std::any_of(all.begin(), all.end(), [&](const Exchange& exchange) {
        return exchange.what == Exchange::What::Error && exchange.asker == window.identity &&
               exchange.text.contains(part);
    });
}

SquareMemory::OnDisk Account::onDisk() const
{
    return [this](const QString& name) { return m_folder.accepted(name); };
}

} // namespace monkey
