"""A Wayland session seen and driven from outside: a pointer and a keyboard of the compositor's own making, and pictures."""

import os
import socket
import struct
import time


def text(words):
    """As the protocol has texts."""
    data = words.encode() + b"\0"
    return struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)


class Client:
    """A connection to the compositor, without any library."""

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.last = 1
        self.send(1, 1, struct.pack("=I", self.new()))  # wl_display.get_registry
        told = [event for target, _, event in self.events() if target == 2]
        self.names = {event[8:].split(b"\0")[0].decode(): event[:4] for event in told}

    def bind(self, interface, version=1):
        made = self.new()
        self.send(2, 0, self.names[interface] + text(interface) + struct.pack("=II", version, made))
        return made

    def new(self):
        self.last += 1
        return self.last

    def send(self, target, opcode, arguments=b""):
        self.socket.sendall(struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments)

    def events(self):
        """The events until the compositor has done all that it was asked."""
        done = self.new()
        self.send(1, 0, struct.pack("=I", done))  # wl_display.sync
        data = b""
        while True:
            data += self.socket.recv(65536)
            while len(data) >= 8:
                target, opcode, size = struct.unpack("=IHH", data[:8])
                if len(data) < size:
                    break
                event, data = data[8:size], data[size:]
                yield target, opcode, event
                if target == done:
                    return

    def sync(self):
        for target, opcode, event in self.events():
            if (target, opcode) == (1, 0):
                raise AssertionError(f"the compositor refuses: {event}")


class Pointer(Client):
    """A virtual pointer, spoken to the compositor in its own protocol (zwlr_virtual_pointer_v1). Lives as long as this."""

    BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}

    def __init__(self, width, height):
        super().__init__()
        self.width, self.height = width, height
        manager, self.pointer = self.bind("zwlr_virtual_pointer_manager_v1"), self.new()
        self.send(manager, 0, struct.pack("=II", 0, self.pointer))
        self.sync()

    def act(self, opcode, *numbers):
        self.send(self.pointer, opcode, struct.pack(f"={len(numbers) + 1}I", int(time.monotonic() * 1000) & 0xffffffff, *numbers))
        self.send(self.pointer, 4)  # frame
        self.sync()

    def move(self, x, y):
        self.act(1, x, y, self.width, self.height)

    def glide(self, x, y, end_x, end_y):
        """A jump onto an entry selects nothing; a hand moves in steps."""
        for step in range(1, 9):
            self.move(x + (end_x - x) * step // 8, y + (end_y - y) * step // 8)
            time.sleep(0.015)

    def down(self, button=1):
        self.act(2, self.BUTTONS[button], 1)

    def up(self, button=1):
        self.act(2, self.BUTTONS[button], 0)

    def click(self, x, y, button=1):
        self.move(x - 1, y)
        self.move(x, y)
        self.down(button)
        time.sleep(0.03)
        self.up(button)
