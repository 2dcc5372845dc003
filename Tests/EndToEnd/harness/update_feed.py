# SPDX-License-Identifier: MIT
"""A feed of new versions on this machine, signed with keys made for the occasion."""
import base64
import http.server
import pathlib
import subprocess
import sys
import tempfile
import threading

NAMESPACES = ('xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle" '
              'xmlns:tavik="urn:tavik-launcher:feed"')
TOOL = pathlib.Path(__file__).resolve().parents[3] / "Packaging" / "sign-update"


class Signer:
    """One key pair, and the tool that signs with it."""

    def __init__(self, folder):
        self._folder = pathlib.Path(folder)
        self._key = self._folder / "key.pem"
        subprocess.run(["openssl", "genpkey", "-algorithm", "ed25519", "-out", self._key], check=True)
        public = ["openssl", "pkey", "-in", self._key, "-pubout", "-outform", "DER"]
        self.public_key = base64.b64encode(
            subprocess.run(public, check=True, stdout=subprocess.PIPE).stdout[-32:]).decode()

    def enclosure(self, version, content, url):
        package = self._folder / "package.AppImage"
        package.write_bytes(content)
        return subprocess.run(
            [sys.executable, TOOL, "--key", self._key, "--version", version, "--processor", "any", "--url", url,
             package], check=True, stdout=subprocess.PIPE, text=True).stdout


class UpdateFeed:
    """Use as a context manager. Notes the path of every request."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tavik-feed-")
        self.signer = Signer(self._folder.name)
        self.requests = []
        self.goes_on = threading.Event()  # What ends a file half-way.
        self.goes_on.set()
        self._files = {}

    def __enter__(self):
        feed = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):  # The base class calls it by this name.
                feed.requests.append(self.path)
                content, kind = feed._files.get(self.path, (None, None))
                self.send_response(200 if content is not None else 404)
                self.send_header("Content-Length", str(len(content or b"")))
                self.send_header("Content-Type", kind or "text/plain")
                self.end_headers()
                half = len(content or b"") // 2
                self.wfile.write((content or b"")[:half])
                feed.goes_on.wait(60)
                self.wfile.write((content or b"")[half:])

            def log_message(self, *_):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, kwargs={"poll_interval": 0.05}, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.goes_on.set()
        self._server.shutdown()
        self._server.server_close()
        self._folder.cleanup()

    @property
    def environment(self):
        """What makes the launcher version 2.0 that trusts this feed."""
        return {
            "TAVIK_TEST_FEED": self._address("/feed.xml"),
            "TAVIK_TEST_KEY": self.signer.public_key,
            "TAVIK_TEST_VERSION": "2.0",
        }

    def offer(self, version, package):
        """Makes `package` the newest version."""
        enclosure = self.signer.enclosure(version, package, self._address("/package"))
        self._files["/package"] = package, "application/vnd.appimage"
        self._files["/feed.xml"] = f"""<?xml version="1.0" encoding="utf-8"?>
            <rss version="2.0" {NAMESPACES}><channel><item>
              <title>Version {version}</title>
              <sparkle:version>{version}</sparkle:version>
              <description><![CDATA[<p>Faster.</p>]]></description>
              {enclosure}
            </item></channel></rss>""".encode(), "application/rss+xml"

    def _address(self, path):
        return f"http://127.0.0.1:{self._server.server_address[1]}{path}"
