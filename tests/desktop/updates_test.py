"""Updates from a feed on this machine: the reminder, the window, the file that is handed over."""

import base64
import functools
import http.server
import os
import plistlib
import subprocess
import sys
import threading
import time
import unittest

import dbus
import dbusmock

import desktop
from desktop import Program, keys, wait_until, zv
from settings_test import act, find, found

VERSION = zv("--version").split()[-1]

HOME = desktop.HOME
SERVED = os.path.join(HOME, "served")
RESOURCES = os.path.join(HOME, "resources")
OPENED = os.path.join(HOME, "opened")
RAW_PUBLIC_KEY_SIZE = 32  # the last bytes of a key in its standard wrapping


def openssl(*arguments):
    return subprocess.run(["openssl", *arguments], check=True, capture_output=True).stdout


class Feed(http.server.SimpleHTTPRequestHandler):
    requests = []  # (path, header lines)

    def log_message(self, *_):
        pass

    def do_GET(self):
        self.requests.append((self.path, {name: value for name, value in self.headers.items() if name not in ("Host", "Accept-Encoding")}))
        super().do_GET()


class UpdatesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for folder in (SERVED, RESOURCES):
            os.makedirs(folder, exist_ok=True)
        cls.key = os.path.join(HOME, "key.pem")
        openssl("genpkey", "-algorithm", "ed25519", "-out", cls.key)
        public = openssl("pkey", "-in", cls.key, "-pubout", "-outform", "DER")[-RAW_PUBLIC_KEY_SIZE:]
        cls.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Feed, directory=SERVED))
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()
        cls.address = f"http://127.0.0.1:{cls.server.server_port}"
        with open(os.path.join(RESOURCES, "Info.plist"), "wb") as file:
            plistlib.dump({"SUFeedURL": cls.address + "/appcast.xml", "SUPublicEDKey": base64.b64encode(public).decode()}, file)
        cls.make_opener()
        cls.notifications, cls.mock = dbusmock.DBusTestCase.spawn_server_template("notification_daemon", {"capabilities": "body actions"}, stdout=subprocess.DEVNULL)

    @classmethod
    def tearDownClass(cls):
        cls.server.shutdown()
        cls.server.server_close()
        cls.notifications.terminate()
        cls.notifications.wait()

    @classmethod
    def make_opener(cls):
        """The desktop's software installer: notes what it is given."""
        desktop.write(os.path.join(HOME, ".local/share/applications/installer.desktop"), f"[Desktop Entry]\nType=Application\nName=Installer\n"
                      f"Exec=cp %f {OPENED}\nMimeType=application/vnd.debian.binary-package;application/x-deb;\n")
        desktop.write(os.path.join(HOME, ".config/mimeapps.list"),
                      "[Default Applications]\napplication/vnd.debian.binary-package=installer.desktop\napplication/x-deb=installer.desktop\n")

    def offer(self, version, content, name=""):
        """Puts a feed in place that offers `content`, signed."""
        package = os.path.join(SERVED, "zanthe-vell.deb")
        with open(package, "wb") as file:
            file.write(content)
        signature = base64.b64encode(openssl("pkeyutl", "-sign", "-inkey", self.key, "-rawin", "-in", package)).decode()
        feed = os.path.join(SERVED, "appcast.xml")
        with open(feed, "w", encoding="utf-8") as file:
            file.write(f"""<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>
                <sparkle:version>{version}</sparkle:version><sparkle:shortVersionString>{name}</sparkle:shortVersionString><description>Better menus.</description>
                <enclosure url="{self.address}/zanthe-vell.deb" length="{len(content)}" sparkle:edSignature="{signature}"/></item></channel></rss>""")
        signature = base64.b64encode(openssl("pkeyutl", "-sign", "-inkey", self.key, "-rawin", "-in", feed)).decode()
        with open(feed, "a", encoding="utf-8") as file:
            file.write(f"<!-- edSignature: {signature} -->\n")

    def setUp(self):
        if os.path.exists(OPENED):
            os.remove(OPENED)
        Feed.requests.clear()
        zv("prefs", "write", "ReplaceAppleMenu", "false")
        self.program = Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", ZANTHE_VELL_RESOURCES=RESOURCES)
        self.program.__enter__()
        self.addCleanup(self.program.__exit__)
        wait_until(lambda: subprocess.run([desktop.PROGRAM, "settings"], capture_output=True, check=False).returncode == 0, 10, "it opens its settings")
        found("Zanthe Vell Settings")

    def check_now(self):
        act(found("Check Now"))

    def test_a_signed_newer_version_is_handed_over(self):
        self.offer("99.0", b"!<arch>\nthe package")
        found("Once a day, Zanthe Vell asks for the list of its versions. The request says nothing about you or this computer.")
        self.check_now()
        found(f"Zanthe Vell 99.0 is available. You have {VERSION}.")
        self.assertEqual(Feed.requests, [("/appcast.xml", {"User-Agent": "Zanthe Vell", "Accept-Language": "*", "Connection": "Keep-Alive"})],
                         "one request, and nothing in it that tells who asks")
        self.install()

    def install(self):
        act(found("Install"))
        wait_until(lambda: os.path.exists(OPENED), 10, "the installer gets the file")
        with open(OPENED, "rb") as file:
            self.assertEqual(file.read(), b"!<arch>\nthe package")

    def test_a_feeds_words_are_never_markup(self):
        self.offer("99.0", b"!<arch>\nthe package", name="99 &lt;b&gt;bold&lt;/b&gt;")
        self.check_now()
        found(f"Zanthe Vell 99 <b>bold</b> is available. You have {VERSION}.")

    def test_without_anything_newer_it_says_so(self):
        self.offer("0.1", b"old")
        self.check_now()
        found(f"Zanthe Vell {VERSION} is the newest version.")
        keys("Escape")
        wait_until(lambda: find("You’re up to date") is None, 3, "the window closes")


class ReminderTest(UpdatesTest):
    """In the background an update is told by a notification; a click on it opens the window."""

    def setUp(self):
        self.offer("99.0", b"!<arch>\nthe package")
        super().setUp()
        # A window that has just opened may not have the keyboard yet.
        wait_until(lambda: keys("Escape") or find("Zanthe Vell Settings") is None, 5, "the settings close")

    def test_a_signed_newer_version_is_handed_over(self):
        begin = time.monotonic()
        wait_until(lambda: Feed.requests, 75, "a scheduled check")
        self.assertGreater(time.monotonic() - begin, 50, "the first minute belongs to the menu")
        called = wait_until(lambda: [call for call in self.mock.GetMethodCalls("Notify")], 5, "the notification")
        self.assertEqual(called[-1][1][3], "Zanthe Vell 99.0 is available")
        self.assertEqual(called[-1][1][4], "Click to install it.")
        self.mock.EmitSignal("org.freedesktop.Notifications", "ActionInvoked", "us", dbus.Array([dbus.UInt32(1), "default"], signature="v"))
        found(f"Zanthe Vell 99.0 is available. You have {VERSION}.")
        wait_until(lambda: self.mock.GetMethodCalls("CloseNotification"), 3, "it is taken back when it was attended to")
        self.install()

    test_a_feeds_words_are_never_markup = None
    test_without_anything_newer_it_says_so = None


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[1:], verbosity=2)
