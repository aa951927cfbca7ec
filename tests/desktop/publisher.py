"""A maker's download server on the loopback interface, and a program that asks it.

The program is the one that ships. Beside it, where it looks for the program that fetches the
manifest, stands one made of the same code that asks our server and trusts its certificate."""

import http.server
import json
import shutil
import ssl
import subprocess
import threading

from harness import PROGRAM

CERTIFICATE = ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
               "-subj", "/CN=localhost", "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1"]


class Publisher:
    """Answers every request with the manifest of the moment; a context manager."""

    def __init__(self, folder):
        folder.mkdir()
        key, certificate = folder / "key.pem", folder / "certificate.pem"
        subprocess.run(CERTIFICATE + ["-keyout", str(key), "-out", str(certificate)], check=True,
                       stderr=subprocess.DEVNULL)
        self.answer = (200, b"")
        self.requests = []
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, key)
        self._server.socket = context.wrap_socket(self._server.socket, server_side=True)
        self._thread = threading.Thread(target=self._server.serve_forever, daemon=True)
        self._thread.start()

        for name in (PROGRAM.name, "hmatnik-views.so"):
            shutil.copy(PROGRAM.parent / name, folder)
        self.program = folder / PROGRAM.name
        fetch = folder / "hmatnik-fetch-manifest"
        fetch.write_text("#!/bin/sh\nexec '{}' 127.0.0.1:{} '{}'\n".format(
            PROGRAM.parent / "tests/FetchOverLoopback", self._server.server_port, certificate))
        fetch.chmod(0o755)

    def _handler(self):
        owner = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                status, body = owner.answer
                self.send_response(status)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)
                owner.requests.append(self.path)

            def log_message(self, *_):
                pass

        return Handler

    def publish(self, version, url="https://stahnout.example/hmatnik", **more):
        self.answer = (200, json.dumps({"version": version, "url": url, **more}).encode())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()
        self._thread.join()
