#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The end that nobody chose: signals, the end of the session and a display that goes, as the running
program meets them.

endings_test.py EXECUTABLE FAULTY_DISK, below on_virtual_display.
"""

import errno
import os
import pathlib
import signal
import time

from driven import DiskTest, ProgramTest, main
from endings import NOT_SAVED, Life, OwnDisplay
from session_manager import SessionManager
from stranger import NotFound, wait_for

MORE_THAN_ONE_CALL = 1.2  # seconds


class Endings(ProgramTest):
    def live(self, under=(), **environment):
        life = Life(self.executable, under, **environment)
        self.addCleanup(life.kill)
        return life

    def assert_goes_on(self, life):
        with self.assertRaises(NotFound):
            wait_for("a question", life.is_asking, 0.5)
        self.assertIsNone(life.program.process.poll())

    def test_a_signal_asks_as_leaving_does(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(signal=number.name):
                life = self.live()
                life.new_editor()
                life.signal(number)
                wait_for("the question", life.is_asking)
                life.answer("Sí")
                path = life.folder / "parcela.asc"
                life.program.answer_file_dialog(path)
                self.assertEqual(life.program.wait_for_end(), 0)
                self.assertIn(b"\t 7.0000000E+0000\t", path.read_bytes())
                self.assertNotIn(NOT_SAVED, life.told())

    def test_without_data_to_save_it_ends(self):
        life = self.live()
        life.no_windows()
        life.signal(signal.SIGTERM)
        self.assertEqual(life.program.wait_for_end(), 0)

    def test_who_cancels_goes_on(self):
        life = self.live()
        life.open_menu()
        for _ in range(2):
            life.signal(signal.SIGTERM)
            wait_for("the question", life.is_asking)
            life.answer("Sí")
            life.answer("Cancelar")
            self.assert_goes_on(life)
            time.sleep(MORE_THAN_ONE_CALL)
        self.assertEqual(life.program.windows(), ["Editor"])

    def test_a_signal_waits_for_the_question_that_is_open(self):
        life = self.live()
        life.open_file_dialog()
        life.signal(signal.SIGTERM)
        self.assert_goes_on(life)
        life.answer("Cancelar")
        wait_for("the question", life.is_asking)
        life.answer("No")
        self.assertEqual(life.program.wait_for_end(), 0)
        self.assertEqual(life.files(), {})

    def test_a_signal_waits_for_the_study_that_runs(self):
        life = self.live()
        life.running_study()
        life.signal(signal.SIGTERM)
        wait_for("the question", life.is_asking)
        life.answer("No")
        self.assertEqual(life.program.wait_for_end(), 0)

    def test_a_second_call_ends_it_unasked(self):
        life = self.live()
        life.editor_of_a_file()
        before = life.files()
        life.signal(signal.SIGTERM)
        wait_for("the question", life.is_asking)
        time.sleep(MORE_THAN_ONE_CALL)
        life.signal(signal.SIGTERM)
        self.assertEqual(life.program.wait_for_end(), 128 + signal.SIGTERM)
        self.assertIn(NOT_SAVED, life.told())
        self.assertEqual(life.files(), before)

    def test_below_nohup_a_terminal_may_go(self):
        life = self.live(under=("nohup",))
        life.signal(signal.SIGHUP)
        self.assert_goes_on(life)

    def test_a_display_that_goes_is_told_of(self):
        for state in ("editor_of_a_file", "open_file_dialog"):
            with self.subTest(state=state):
                display = OwnDisplay()
                self.addCleanup(display.close)
                life = self.live()
                getattr(life, state)()
                before = life.files()
                display.take_away()
                self.assertEqual(life.program.wait_for_end(), 1)
                self.assertIn("se perdió la conexión con la pantalla", life.told())
                self.assertIn(NOT_SAVED, life.told())
                self.assertEqual(life.files(), before)
                display.close()

    # The session

    def logged_in(self, **environment):
        session = SessionManager()
        self.addCleanup(session.stop)
        life = self.live(SESSION_MANAGER=session.address, **environment)
        self.assertEqual(session.told(), "registered")
        return session, life

    def test_the_session_waits_for_the_answers(self):
        session, life = self.logged_in()
        life.new_editor()
        session.order("end")
        wait_for("the question", life.is_asking)
        life.answer("No")
        self.assertEqual(session.told(), "saved")
        self.assertEqual(life.program.wait_for_end(), 0)

    def test_who_cancels_keeps_the_session(self):
        session, life = self.logged_in()
        life.new_editor()
        session.order("end")
        wait_for("the question", life.is_asking)
        life.answer("Sí")
        life.answer("Cancelar")
        self.assertEqual(session.told(), "cancelled")
        self.assertEqual(session.told(), "not saved")
        self.assert_goes_on(life)

    def test_a_save_without_memory_keeps_the_session(self):
        faults = pathlib.Path(os.environ["CL_SCRATCH"]) / "faltas"
        faults.write_text("")
        session, life = self.logged_in(
            LD_PRELOAD=str(DiskTest.faulty_disk), CL_FAULTS=str(faults)
        )
        life.new_editor()
        session.order("end")
        wait_for("the question", life.is_asking)
        faults.write_text(f"memory {errno.ENOMEM}\n")
        life.answer("Sí")
        life.program.answer_file_dialog(life.folder / "parcela.asc")
        life.program.find("label", "No hay memoria suficiente.")
        faults.write_text("")
        life.answer("Aceptar")
        self.assertEqual(session.told(), "cancelled")
        self.assertEqual(session.told(), "not saved")
        self.assert_goes_on(life)

    def test_an_open_question_keeps_the_session(self):
        session, life = self.logged_in()
        life.open_file_dialog()
        session.order("end")
        self.assertEqual(session.told(), "cancelled")
        self.assertEqual(session.told(), "not saved")
        life.answer("Cancelar")
        self.assert_goes_on(life)


if __name__ == "__main__":
    main()
