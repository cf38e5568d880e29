// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFixture.h"
#include "square/editor/RefusedBlock.h"

using namespace squarebytes;

namespace {

/// A square whose cells need 180 kB in the file's record and in each grid.
QByteArray largeSquare()
{
    constexpr int order = 150;
    const QByteArray count = QByteArray::number(order);
    return lines(
        {"grande", count, count, "FALSE FALSE FALSE", QByteArray("1 ").repeated(order * order)});
}

} // namespace

using EditorMemory = EditorTest;

TEST_F(EditorMemory, ALoadThatRunsOutOfMemoryLeavesTheWindowAsItWas)
{
    openWith(ofOrder5());
    const QString large = fileOf(largeSquare(), "grande.asc");
    const State before = state();
    int number = 0;
    bool refused = true;
    while (refused) {
        ASSERT_EQ(state(), before) << number;
        m_dialogs.openAnswers.push_back(large);
        m_dialogs.errors.clear();
        const RefusedBlock block(++number);
        action("Cargar1").trigger();
        refused = block.wasRefused();
        ASSERT_EQ(m_dialogs.errors.size(), refused ? 1U : 0U) << number;
        EXPECT_EQ(m_handOff.fileOpened, !refused) << number;
        if (refused) {
            EXPECT_EQ(m_dialogs.errors[0].text, utf8("NTABED: not enough memory on heap"));
        }
    }
    EXPECT_GT(number, 5); // the record, and the values and marks of two grids
    EXPECT_EQ(m_editor->FileName(), large);
    EXPECT_EQ(datos().value(150, 150), 1.0);
    EXPECT_EQ(reference().value(150, 150), 149.0);
}
