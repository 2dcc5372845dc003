# SPDX-License-Identifier: MIT
"""A feed of new versions on this machine, signed with keys made for the occasion."""
import base64
import ctypes
import http.server
import threading

NAMESPACE = "http://www.andymatuschak.org/xml-namespaces/sparkle"
PUBLIC_KEY_SIZE, SECRET_KEY_SIZE, SIGNATURE_SIZE = 32, 64, 64


class Signer:
    """One Ed25519 key pair."""

    def __init__(self):
        self._sodium = ctypes.CDLL("libsodium.so.23")
        assert self._sodium.sodium_init() >= 0
        public = ctypes.create_string_buffer(PUBLIC_KEY_SIZE)
        self._secret = ctypes.create_string_buffer(SECRET_KEY_SIZE)
        assert self._sodium.crypto_sign_keypair(public, self._secret) == 0
        self.public_key = base64.b64encode(public.raw).decode()

    def sign(self, content):
        signature = ctypes.create_string_buffer(SIGNATURE_SIZE)
        length = ctypes.c_ulonglong(len(content))
        assert self._sodium.crypto_sign_detached(signature, None, content, length, self._secret) == 0
        return base64.b64encode(signature.raw).decode()


class UpdateFeed:
    """Use as a context manager. Notes the path of every request."""

    def __init__(self):
        self.signer = Signer()
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
                self.wfile.write((content or b"")[:1000])
                feed.goes_on.wait(60)
                self.wfile.write((content or b"")[1000:])

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
        signature = self.signer.sign(package)
        self._files["/package"] = package, "application/vnd.appimage"
        self._files["/feed.xml"] = f"""<?xml version="1.0" encoding="utf-8"?>
            <rss version="2.0" xmlns:sparkle="{NAMESPACE}"><channel><item>
              <title>Version {version}</title>
              <sparkle:version>{version}</sparkle:version>
              <description><![CDATA[<p>Faster.</p>]]></description>
              <enclosure url="{self._address("/package")}" length="{len(package)}"
                type="application/vnd.appimage" sparkle:edSignature="{signature}"/>
            </item></channel></rss>""".encode(), "application/rss+xml"

    def _address(self, path):
        return f"http://127.0.0.1:{self._server.server_address[1]}{path}"
