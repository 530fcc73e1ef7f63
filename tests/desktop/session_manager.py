"""A session manager, as far as a program meets one: it takes clients, reads what they say of
themselves, and ends the session."""

import ctypes
import os
import select
import time

from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

SAVE_LOCAL, SAVE_BOTH, INTERACT_NONE, CONNECT_PENDING = 1, 2, 0, 0


class Value(ctypes.Structure):
    _fields_ = [("length", c_int), ("data", c_void_p)]


class Property(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("type", c_char_p), ("count", c_int), ("values", POINTER(Value))]


class Callback(ctypes.Structure):
    _fields_ = [("procedure", c_void_p), ("data", c_void_p)]


NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(Callback), POINTER(c_char_p))
HostCheck = CFUNCTYPE(c_int, c_char_p)
Register = CFUNCTYPE(c_int, c_void_p, c_void_p, c_char_p)
Plain = CFUNCTYPE(None, c_void_p, c_void_p)
Flag = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
Reasons = CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)
Properties = CFUNCTYPE(None, c_void_p, c_void_p, c_int, POINTER(POINTER(Property)))

# In the order in which the library keeps them.
NAMES = ["register", "interact", "interact_done", "save_request", "phase2", "saved", "closed", "set_properties", "delete_properties", "get_properties"]


class SessionManager:
    def __init__(self):
        self.ice, self.sm = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
        for function in (self.sm.SmsGenerateClientID, self.ice.IceAcceptConnection, self.ice.IceComposeNetworkIdList):
            function.restype = c_void_p
        self.ends = False
        self.clients, self.properties, self.saved, self.connections = [], {}, set(), {}
        self.calls = {"register": Register(self.register), "interact": Flag(lambda *_: None), "interact_done": Flag(lambda *_: None), "save_request": Plain(lambda *_: None),
                      "phase2": Plain(lambda *_: None), "saved": Flag(self.save_done), "closed": Reasons(lambda *_: None), "set_properties": Properties(self.set),
                      "delete_properties": Reasons(lambda *_: None), "get_properties": Plain(lambda *_: None)}
        self.new_client, self.host_check = NewClient(self.accept), HostCheck(lambda _: 1)
        os.makedirs("/tmp/.ICE-unix", mode=0o1777, exist_ok=True)
        error = ctypes.create_string_buffer(256)
        if not self.sm.SmsInitialize(b"test", b"1", self.new_client, None, self.host_check, 256, error):
            raise OSError(error.value.decode())
        count, self.listeners = c_int(), POINTER(c_void_p)()
        if not self.ice.IceListenForConnections(byref(count), byref(self.listeners), 256, error):
            raise OSError(error.value.decode())
        self.count = count.value
        for i in range(self.count):
            self.ice.IceSetHostBasedAuthProc(c_void_p(self.listeners[i]), self.host_check)
        self.address = ctypes.string_at(self.ice.IceComposeNetworkIdList(count, self.listeners)).decode()

    def close(self):
        self.ice.IceFreeListenObjs(self.count, self.listeners)

    def accept(self, client, _data, mask, callbacks, _reason):
        mask[0] = (1 << len(NAMES)) - 1
        for i, name in enumerate(NAMES):
            callbacks[i].procedure = ctypes.cast(self.calls[name], c_void_p)
        self.clients.append(client)
        return 1

    def register(self, client, _data, _previous):
        self.sm.SmsRegisterClientReply(c_void_p(client), c_void_p(self.sm.SmsGenerateClientID(c_void_p(client))))
        self.sm.SmsSaveYourself(c_void_p(client), SAVE_LOCAL, 0, INTERACT_NONE, 0)
        return 1

    def save_done(self, client, _data, _success):
        self.saved.add(client)
        if not self.ends:
            self.sm.SmsSaveComplete(c_void_p(client))

    def set(self, _client, _data, count, properties):
        for i in range(count):
            entry = properties[i].contents
            self.properties[entry.name.decode()] = [ctypes.string_at(entry.values[k].data, entry.values[k].length) for k in range(entry.count)]

    def serve(self, until, seconds=10):
        """Talks to the clients until something is so; false when it never is."""
        end = time.monotonic() + seconds
        listening = {self.ice.IceGetListenConnectionNumber(c_void_p(self.listeners[i])): self.listeners[i] for i in range(self.count)}
        while not until():
            if time.monotonic() > end:
                return False
            for descriptor in select.select([*listening, *self.connections], [], [], 0.05)[0]:
                if descriptor in listening:
                    self.take(listening[descriptor])
                elif self.ice.IceProcessMessages(c_void_p(self.connections[descriptor]), None, None) != 0:
                    del self.connections[descriptor]
        return True

    def take(self, listener):
        status = c_int()
        connection = self.ice.IceAcceptConnection(c_void_p(listener), byref(status))
        if not connection:
            return
        while self.ice.IceConnectionStatus(c_void_p(connection)) == CONNECT_PENDING:
            self.ice.IceProcessMessages(c_void_p(connection), None, None)
        self.connections[self.ice.IceConnectionNumber(c_void_p(connection))] = connection

    def end_session(self):
        """Everybody saves, then everybody dies."""
        self.ends = True
        self.saved.clear()
        for client in self.clients:
            self.sm.SmsSaveYourself(c_void_p(client), SAVE_BOTH, 1, INTERACT_NONE, 0)
        if not self.serve(lambda: self.saved >= set(self.clients)):
            raise TimeoutError("somebody does not save")
        for client in self.clients:
            self.sm.SmsDie(c_void_p(client))
