#!/usr/bin/python3
"""A local stand-in for the WinCan Web service, speaking the protocol of README.md.

    wcwstandin.py STOREDIR PORTFILE USER PASSWORD|- [MODE]     (- : password on stdin)

Listens on a free port of 127.0.0.1 and writes it to PORTFILE once it listens.
Uploaded projects land in STOREDIR/<project>/. MODE "garbage" answers every
request with bytes that are not JSON; MODE "silent" accepts and never answers.
"""
import json
import os
import secrets
import sys
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import unquote

API = "/api/v1"


class Service:
    def __init__(self, store, user, password, mode):
        self.store = store
        self.user = user
        self.password = password
        self.mode = mode
        self.tokens = set()
        self.lock = threading.Lock()


def project_dir(service, name):
    if not name or name in (".", "..") or "/" in name:
        return None
    return os.path.join(service.store, name)


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, fmt, *args):  # the requests carry passwords
        pass

    def answer(self, status, obj):
        body = json.dumps(obj).encode()
        self.send_response(status)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def body(self):
        length = int(self.headers.get("Content-Length", "0") or "0")
        return self.rfile.read(length) if length > 0 else b""

    def authorised(self):
        token = self.headers.get("Authorization", "")
        return token.startswith("Bearer ") and token[7:] in self.server.service.tokens

    def misbehave(self):
        mode = self.server.service.mode
        if mode == "garbage":
            self.body()
            junk = b"\x00<html>not json at all"
            self.send_response(200)
            self.send_header("Content-Length", str(len(junk)))
            self.end_headers()
            self.wfile.write(junk)
            return True
        if mode == "silent":
            self.body()
            time.sleep(3600)
            return True
        return False

    def do_POST(self):
        if self.misbehave():
            return
        service = self.server.service
        if self.path == API + "/login":
            try:
                request = json.loads(self.body() or b"{}")
            except ValueError:
                return self.answer(400, {"error": "not JSON"})
            if request.get("user") == service.user and request.get("password") == service.password:
                token = secrets.token_hex(16)
                service.tokens.add(token)
                return self.answer(200, {"token": token})
            return self.answer(401, {"error": "wrong user name or password"})
        if self.path == API + "/logout":
            service.tokens.discard(self.headers.get("Authorization", "")[7:])
            return self.answer(200, {})
        parts = self.path[len(API):].split("/")
        if len(parts) == 4 and parts[1] == "projects" and parts[3] == "complete":
            if not self.authorised():
                return self.answer(401, {"error": "log in first"})
            folder = project_dir(service, unquote(parts[2]))
            if folder is None or not os.path.isdir(folder):
                return self.answer(404, {"error": "no such project"})
            count = sum(len(files) for _, _, files in os.walk(folder))
            return self.answer(200, {"project": unquote(parts[2]), "files": count})
        self.answer(404, {"error": "unknown request"})

    def do_GET(self):
        if self.misbehave():
            return
        service = self.server.service
        if not self.authorised():
            return self.answer(401, {"error": "log in first"})
        if self.path == API + "/projects":
            projects = []
            for name in sorted(os.listdir(service.store)):
                folder = os.path.join(service.store, name)
                if os.path.isdir(folder):
                    count = sum(len(files) for _, _, files in os.walk(folder))
                    projects.append({"id": name, "name": name, "files": count})
            return self.answer(200, {"projects": projects})
        if self.path.startswith(API + "/projects/") and self.path.endswith("/download"):
            return self.answer(501, {"error": "download not offered"})
        self.answer(404, {"error": "unknown request"})

    def do_PUT(self):
        if self.misbehave():
            return
        service = self.server.service
        content = self.body()
        if not self.authorised():
            return self.answer(401, {"error": "log in first"})
        parts = self.path[len(API):].split("/", 4)
        if len(parts) != 5 or parts[1] != "projects" or parts[3] != "files":
            return self.answer(404, {"error": "unknown request"})
        folder = project_dir(service, unquote(parts[2]))
        relative = os.path.normpath(unquote(parts[4]))
        if folder is None or relative.startswith("..") or os.path.isabs(relative):
            return self.answer(400, {"error": "bad path"})
        target = os.path.join(folder, relative)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, "wb") as out:
            out.write(content)
        self.answer(201, {"stored": len(content)})


def main():
    if len(sys.argv) not in (5, 6):
        sys.stderr.write(__doc__)
        return 2
    store, port_file, user, password = sys.argv[1:5]
    mode = sys.argv[5] if len(sys.argv) == 6 else "normal"
    if password == "-":
        password = sys.stdin.readline().rstrip("\n")
    os.makedirs(store, exist_ok=True)
    server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    server.service = Service(store, user, password, mode)
    partial = port_file + ".part"
    with open(partial, "w") as out:
        out.write("%d\n" % server.server_address[1])
    os.replace(partial, port_file)
    server.serve_forever()
    return 0


if __name__ == "__main__":
    sys.exit(main())
