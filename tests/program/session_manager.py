#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The manager of a desktop session, as the running program meets it when its user logs out.

As a script it serves programs: it prints its address, which they find in SESSION_MANAGER, then each thing
that they tell it, and reads orders: `end`, an end of the session that may ask; `save`, the same without an
end; `hurry`, an end that may not ask.
"""

import ctypes
import os
import select
import subprocess
import sys
import threading

_OK = 1
_SAVE_BOTH = 2
_ASK_NOTHING, _ASK_ANYTHING = 0, 2
_ALL_CALLBACKS = (1 << 10) - 1

_pointer = ctypes.c_void_p
_bool = ctypes.c_int
_conn = (_pointer, _pointer)  # the client, and data of ours that we do not use


def _callback(result, *arguments):
    return ctypes.CFUNCTYPE(result, *_conn, *arguments)


# In the order of SmsCallbacks in SMlib.h.
_CALLBACKS = {
    "register": _callback(_bool, _pointer),
    "interact_request": _callback(None, ctypes.c_int),
    "interact_done": _callback(None, _bool),
    "save_request": _callback(None, ctypes.c_int, _bool, ctypes.c_int, _bool, _bool),
    "phase2_request": _callback(None),
    "save_done": _callback(None, _bool),
    "close": _callback(None, ctypes.c_int, _pointer),
    "set_properties": _callback(None, ctypes.c_int, _pointer),
    "delete_properties": _callback(None, ctypes.c_int, _pointer),
    "get_properties": _callback(None),
}


class _Callbacks(ctypes.Structure):
    _fields_ = [
        field
        for name, kind in _CALLBACKS.items()
        for field in ((name, kind), (f"{name}_data", _pointer))
    ]


_NewClient = ctypes.CFUNCTYPE(
    _bool, _pointer, _pointer, ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(_Callbacks), _pointer
)
_Authorise = ctypes.CFUNCTYPE(_bool, ctypes.c_char_p)
_IoError = ctypes.CFUNCTYPE(None, _pointer)


def _say(*words):
    print(*words, flush=True)


class _Server:
    def __init__(self):
        self.sm = ctypes.CDLL("libSM.so.6")
        self.ice = ctypes.CDLL("libICE.so.6")
        for name in ("IceAcceptConnection", "IceComposeNetworkIdList"):
            getattr(self.ice, name).restype = _pointer
        self.clients, self.connections = [], {}
        self.ends = False
        self._kept = [
            _NewClient(self.new_client), _Authorise(lambda host: 1), _IoError(lambda conn: None)
        ]
        new_client, authorise, io_error = self._kept
        self.ice.IceSetIOErrorHandler(io_error)
        error = ctypes.create_string_buffer(256)
        if not self.sm.SmsInitialize(b"tests", b"1", new_client, None, authorise, 256, error):
            sys.exit(error.value.decode())
        count, objects = ctypes.c_int(), ctypes.POINTER(_pointer)()
        if not self.ice.IceListenForConnections(
            ctypes.byref(count), ctypes.byref(objects), 256, error
        ):
            sys.exit(error.value.decode())
        self.listening = {}
        for i in range(count.value):
            listener = _pointer(objects[i])
            self.ice.IceSetHostBasedAuthProc(listener, authorise)
            self.listening[self.ice.IceGetListenConnectionNumber(listener)] = listener
        address = self.ice.IceComposeNetworkIdList(count, objects)
        _say(ctypes.string_at(address).decode())

    def new_client(self, client, _data, mask, callbacks, _reason):
        sm = self.sm

        def register(client, _data, _previous):
            sm.SmsRegisterClientReply(_pointer(client), b"1")
            self.clients.append(client)
            _say("registered")
            return _OK

        def interact_done(client, _data, cancels):
            if cancels:
                _say("cancelled")
                sm.SmsShutdownCancelled(_pointer(client))
                self.ends = False

        def save_done(client, _data, success):
            _say("saved" if success else "not saved")
            if self.ends:
                sm.SmsDie(_pointer(client))
            else:
                sm.SmsSaveComplete(_pointer(client))

        def close(client, _data, _count, _reasons):
            _say("closed")
            self.clients.remove(client)

        nothing = lambda *arguments: None  # noqa: E731
        answers = {
            "register": register,
            "interact_request": lambda client, data, kind: sm.SmsInteract(_pointer(client)),
            "interact_done": interact_done,
            "phase2_request": lambda client, data: sm.SmsSaveYourselfPhase2(_pointer(client)),
            "save_done": save_done,
            "close": close,
            "get_properties": lambda client, data: sm.SmsReturnProperties(_pointer(client), 0, None),
        }
        for name, kind in _CALLBACKS.items():
            callback = kind(answers.get(name, nothing))
            self._kept.append(callback)
            setattr(callbacks.contents, name, callback)
        mask[0] = _ALL_CALLBACKS
        return _OK

    def order(self, order):
        self.ends = order != "save"
        style = _ASK_NOTHING if order == "hurry" else _ASK_ANYTHING
        for client in self.clients:
            self.sm.SmsSaveYourself(_pointer(client), _SAVE_BOTH, self.ends, style, 0)

    def accept(self, listener):
        status = ctypes.c_int()
        connection = self.ice.IceAcceptConnection(listener, ctypes.byref(status))
        if connection:
            self.connections[self.ice.IceConnectionNumber(_pointer(connection))] = connection

    def serve(self):
        ready_to_reply = ctypes.c_int()
        while True:
            files = [sys.stdin.fileno(), *self.listening, *self.connections]
            for file in select.select(files, [], [])[0]:
                if file in self.listening:
                    self.accept(self.listening[file])
                elif file in self.connections:
                    if self.ice.IceProcessMessages(
                        _pointer(self.connections[file]), None, ctypes.byref(ready_to_reply)
                    ):
                        del self.connections[file]
                else:
                    line = os.read(sys.stdin.fileno(), 64).decode()
                    if not line:
                        os._exit(0)
                    self.order(line.strip())


class SessionManager:
    """A manager as a process, for one program."""

    def __init__(self):
        self._process = subprocess.Popen(
            [sys.executable, __file__], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )
        self.address = self.told()

    def told(self):
        """What the program has told next; nothing where it says no more."""
        patience = threading.Timer(30, self._process.kill)
        patience.start()
        try:
            return self._process.stdout.readline().strip()
        finally:
            patience.cancel()

    def order(self, order):
        self._process.stdin.write(f"{order}\n")
        self._process.stdin.flush()

    def stop(self):
        self._process.kill()
        self._process.communicate()


if __name__ == "__main__":
    _Server().serve()
