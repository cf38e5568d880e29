// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk/FrameModel.h"

#include <algorithm>
#include <utility>

namespace walk {

namespace {

QString menuOf(Kind kind)
{
    switch (kind) {
    case Kind::Editor:
        return QStringLiteral("E&ditor");
    case Kind::Analysis:
        return QStringLiteral("Aná&lisis");
    case Kind::Graph:
        return QStringLiteral("&Gráfica");
    default:
        return QStringLiteral("&Potencia");
    }
}

const QString complete =
    QStringLiteral("Análisis completo. Puede realizar otro o guardar los resultados.");

/// What an analysis says of a report that no longer answers what stands in it.
QString staleText(const Child& analysis)
{
    const Choice& choice = analysis.choice;
    const std::optional<Choice>& reported = analysis.reported;
    const QString other = reported->approach != choice.approach ? QStringLiteral("el enfoque")
                          : reported->test != choice.test       ? QStringLiteral("la prueba")
                                                                : QString();
    if (analysis.hasOtherData)
        return QStringLiteral("Cambiaron los datos%1: pulse Analizar")
            .arg(other.isEmpty() ? QString() : QStringLiteral(" y ") + other);
    return other.isEmpty() ? QString() : QStringLiteral("Cambió %1: pulse Analizar").arg(other);
}

/// What a child says as it becomes the active one.
QString greetingOf(const Child& child)
{
    if (!child.stale.isEmpty())
        return child.stale;
    switch (child.kind) {
    case Kind::Editor:
        return QStringLiteral("Puede manejar archivos de datos para el análisis aquí. Para "
                              "analizar los datos actuales use la opción 'Guardar y Analizar'");
    case Kind::Analysis:
        return QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");
    case Kind::Graph:
        return QStringLiteral("Arrastre sobre una gráfica para ampliarla; Esc regresa un paso y "
                              "doble clic muestra todo.");
    default:
        return QStringLiteral("Listo.");
    }
}

QString farewellOf(Kind kind)
{
    return kind == Kind::Editor ? QStringLiteral("Listo") : QStringLiteral("Listo.");
}

} // namespace

Child editor()
{
    Child child;
    child.kind = Kind::Editor;
    child.caption = QStringLiteral("Editor");
    child.control = QStringLiteral("Datos");
    child.isSaved = false; // though nothing was typed
    return child;
}

Child analysis(const QString& caption, int order)
{
    Child child;
    child.kind = Kind::Analysis;
    child.caption = caption;
    child.control = QStringLiteral("RadioGroup1Item0");
    child.order = order;
    return child;
}

Child graph(const QString& statistic)
{
    Child child;
    child.kind = Kind::Graph;
    child.caption =
        QStringLiteral("Distribución exacta de %1 para cuadrados de 3x3").arg(statistic);
    child.control = QStringLiteral("Graph");
    return child;
}

Child power()
{
    Child child;
    child.kind = Kind::Power;
    child.caption = QStringLiteral("Potencia");
    child.control = QStringLiteral("BtnCalcular");
    return child;
}

void FrameModel::say(const QString& text)
{
    m_text = text;
    notice.clear();
}

void FrameModel::open(const Child& opened)
{
    children.push_back(opened);
    activate(static_cast<int>(children.size()) - 1);
    if (opened.kind == Kind::Analysis)
        maximise();
}

void FrameModel::activate(int index)
{
    if (index == active)
        return;
    if (hasChild())
        commit();
    becomeActive(index);
}

void FrameModel::close(int index)
{
    const auto place = static_cast<std::size_t>(index);
    const bool wasActive = index == active;
    if (wasActive)
        say(farewellOf(children.at(place).kind));
    children.erase(children.begin() + index);
    std::erase(m_history, index);
    for (int& other : m_history)
        other -= other > index ? 1 : 0;
    if (!wasActive) {
        active -= active > index ? 1 : 0;
        return;
    }
    active = -1;
    if (children.empty())
        isMaximised = false;
    else
        becomeActive(m_history.back()); // where the user was before
}

void FrameModel::comeBack()
{
    say(greetingOf(child()));
}

void FrameModel::maximise()
{
    child().isMinimised = false;
    isMaximised = true;
}

void FrameModel::restore()
{
    child().isMinimised = false;
    isMaximised = false;
}

void FrameModel::minimise()
{
    commit();
    child().isMinimised = true;
    isMaximised = false;
}

void FrameModel::commit()
{
    if (child().cellIsOpen)
        changed();
    child().cellIsOpen = false;
}

void FrameModel::changed()
{
    notice.clear();
    if (isActive(Kind::Editor))
        child().isSaved = false;
    if (!isActive(Kind::Analysis))
        return;
    child().hasOtherData = true;
    tellWhetherStale();
    const QString stale = child().stale;
    if (!std::exchange(child().wasEdited, true))
        notice = (stale.isEmpty() ? QString() : stale + QStringLiteral(". ")) +
                 QStringLiteral("Los cambios valen en esta ventana, pero no llegan al archivo.");
}

void FrameModel::choose(const Choice& choice)
{
    child().choice = choice;
    tellWhetherStale();
}

void FrameModel::report()
{
    child().reported = child().choice;
    child().hasOtherData = false;
    child().stale.clear();
    say(complete);
}

void FrameModel::tellWhetherStale()
{
    if (!child().reported)
        return;
    const QString text = staleText(child());
    if (text == std::exchange(child().stale, text))
        return;
    say(text.isEmpty() ? complete : text);
}

void FrameModel::focus(const QString& control)
{
    commit();
    child().control = control;
}

QStringList FrameModel::bar() const
{
    QStringList titles{QStringLiteral("&Archivo"), QStringLiteral("&Ventana"),
                       QStringLiteral("A&yuda")};
    if (hasChild())
        titles.insert(1, menuOf(child().kind));
    return titles;
}

QString FrameModel::caption() const
{
    const QString own = QStringLiteral("Cuadrado Latino");
    return isMaximised ? QStringLiteral("%1 - [%2]").arg(own, child().caption) : own;
}

QStringList FrameModel::captions() const
{
    QStringList all;
    for (const Child& one : children)
        all << one.caption;
    return all;
}

QString FrameModel::focus() const
{
    if (child().isMinimised)
        return {};
    return child().cellIsOpen ? QStringLiteral("CellEditor") : child().control;
}

std::vector<LiveKey> FrameModel::liveKeys() const
{
    std::vector<LiveKey> keys{
        {Qt::CTRL | Qt::Key_N, QStringLiteral("&Nuevo Archivo")},
        {Qt::ALT | Qt::Key_F4, QStringLiteral("Salir")},
        {Qt::SHIFT | Qt::Key_F4, QStringLiteral("&Cascada")},
        {Qt::SHIFT | Qt::Key_F5, QStringLiteral("&Mosaico")},
    };
    // In a text this key selects it all.
    static const QStringList texts{QStringLiteral("CellEditor"), QStringLiteral("NFilas"),
                                   QStringLiteral("Reporte"), QStringLiteral("log"),
                                   QStringLiteral("UpDown2")};
    if (!hasChild() || !texts.contains(focus()))
        keys.push_back({Qt::CTRL | Qt::Key_A, QStringLiteral("&Abrir Archivo...")});
    if (!hasChild())
        return keys;
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_F4})
        keys.push_back({Qt::CTRL | key, QStringLiteral("&Cerrar")});
    if (isActive(Kind::Editor)) {
        keys.push_back({Qt::Key_F3, QStringLiteral("&Cargar...")});
        keys.push_back({Qt::Key_F2, QStringLiteral("&Guardar...")});
    }
    if (isActive(Kind::Analysis))
        keys.push_back({Qt::CTRL | Qt::Key_E, QStringLiteral("&Exportar...")});
    if (isActive(Kind::Graph))
        keys.push_back({Qt::Key_F2, QStringLiteral("Guardar &Datos...")});
    if (canWork(Kind::Analysis))
        keys.push_back({Qt::Key_F9, QStringLiteral("Analizar")});
    if (canWork(Kind::Power))
        keys.push_back({Qt::Key_F9, QStringLiteral("Calcular")});
    return keys;
}

/// The child that takes over from a maximised one is maximised too.
void FrameModel::becomeActive(int index)
{
    active = index;
    std::erase(m_history, index);
    m_history.push_back(index);
    say(greetingOf(child()));
    if (isMaximised)
        child().isMinimised = false;
}

} // namespace walk
