#!/usr/bin/python3
"""The simulated unit's FTP site: pyftpdlib on 127.0.0.1, one user, a private root.

    unitftp.py ROOTDIR PORTFILE USER PASSWORD

Binds a free port, writes it to PORTFILE once it listens, and serves until killed.
The password comes on standard input's first line when PASSWORD is "-", so it
need not stand in the process list.
"""
import os
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    if len(sys.argv) != 5:
        sys.stderr.write("usage: unitftp.py ROOTDIR PORTFILE USER PASSWORD|-\n")
        return 2
    home, port_file, user, password = sys.argv[1:]
    if password == "-":
        password = sys.stdin.readline().rstrip("\n")
    authorizer = DummyAuthorizer()
    authorizer.add_user(user, password, home, perm="elradfmwMT")
    handler = FTPHandler
    handler.authorizer = authorizer
    handler.banner = "Ductline unit FTP site"
    server = FTPServer(("127.0.0.1", 0), handler)
    port = server.address[1]
    partial = port_file + ".part"
    with open(partial, "w") as out:
        out.write("%d\n" % port)
    os.replace(partial, port_file)
    server.serve_forever()
    return 0


if __name__ == "__main__":
    sys.exit(main())
