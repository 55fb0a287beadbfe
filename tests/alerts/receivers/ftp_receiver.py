#!/usr/bin/python3
"""An FTP server of the alert tests (pyftpdlib): one user whose home is --root, on
127.0.0.1 with passive ports there too. Prints "PORT <n>"; ends by itself after
--lifetime seconds.
"""
import argparse
import logging
import os
import sys
import threading

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--root", required=True)
    p.add_argument("--user", required=True)
    p.add_argument("--password", required=True)
    p.add_argument("--lifetime", type=float, default=60)
    a = p.parse_args()
    threading.Timer(a.lifetime, lambda: os._exit(0)).start()
    logging.basicConfig(level=logging.ERROR)

    authorizer = DummyAuthorizer()
    authorizer.add_user(a.user, a.password, a.root, perm="elradfmw")
    handler = FTPHandler
    handler.authorizer = authorizer
    handler.masquerade_address = "127.0.0.1"
    server = FTPServer(("127.0.0.1", 0), handler)
    print("PORT", server.socket.getsockname()[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    sys.exit(main())
