#!/usr/bin/python3
"""SMTP receiver of the alert tests.

Listens on 127.0.0.1 on a free port, prints "PORT <n>", and writes every mail it takes
as one JSON line to --out: envelope, raw bytes, the parsed headers and the decoded body,
whether the session ran under STARTTLS and who logged in. Ends by itself after
--lifetime seconds. --silent accepts connections and never says a word. Recipients at refused.test are
refused.
"""
import argparse
import asyncio
import base64
import email
import email.policy
import json
import os
import ssl
import subprocess
import sys
import tempfile
import threading

from aiosmtpd.smtp import SMTP, AuthResult


def self_signed_context():
    folder = tempfile.mkdtemp(prefix="twk-smtp-tls-")
    cert, key = os.path.join(folder, "cert.pem"), os.path.join(folder, "key.pem")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key,
                    "-out", cert, "-days", "1", "-subj", "/CN=localhost"],
                   check=True, capture_output=True)
    context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
    context.load_cert_chain(cert, key)
    return context


class Recorder:
    def __init__(self, out):
        self.out = out

    async def handle_DATA(self, server, session, envelope):
        raw = envelope.original_content or envelope.content
        message = email.message_from_bytes(raw, policy=email.policy.default)
        record = {
            "mail_from": envelope.mail_from,
            "rcpt_tos": envelope.rcpt_tos,
            "raw": base64.b64encode(raw).decode("ascii"),
            "tls": session.ssl is not None,
            "login": getattr(session, "twk_login", None),
            "headers": {k: str(v) for k, v in message.items()},
            "body": message.get_content() if not message.is_multipart() else "",
        }
        with open(self.out, "a", encoding="utf-8") as f:
            f.write(json.dumps(record) + "\n")
        return "250 OK"

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        # A recipient of the domain refused.test is refused, as a real server would.
        if address.lower().endswith("@refused.test"):
            return "550 5.1.1 Recipient refused"
        envelope.rcpt_tos.append(address)
        return "250 OK"


def authenticator(user, password):
    def check(server, session, envelope, mechanism, auth_data):
        login = auth_data.login.decode()
        ok = login == user and auth_data.password.decode() == password
        if ok:
            session.twk_login = login
        # handled=False: aiosmtpd itself answers a refusal with 535.
        return AuthResult(success=ok, handled=False)
    return check


async def silent(reader, writer):
    await asyncio.sleep(3600)


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--out", required=True)
    p.add_argument("--lifetime", type=float, default=60)
    p.add_argument("--auth", help="user:password; AUTH is then offered and checked")
    p.add_argument("--tls", action="store_true", help="offer STARTTLS")
    p.add_argument("--silent", action="store_true")
    a = p.parse_args()
    threading.Timer(a.lifetime, lambda: os._exit(0)).start()

    loop = asyncio.new_event_loop()
    asyncio.set_event_loop(loop)
    if a.silent:
        server = loop.run_until_complete(asyncio.start_server(silent, "127.0.0.1", 0))
    else:
        kwargs = {"hostname": "receiver.test", "auth_require_tls": False}
        if a.auth:
            user, password = a.auth.split(":", 1)
            kwargs["authenticator"] = authenticator(user, password)
            kwargs["auth_required"] = True
        else:
            kwargs["auth_exclude_mechanism"] = ["LOGIN", "PLAIN"]
        if a.tls:
            kwargs["tls_context"] = self_signed_context()
        handler = Recorder(a.out)
        server = loop.run_until_complete(
            loop.create_server(lambda: SMTP(handler, **kwargs), "127.0.0.1", 0))
    print("PORT", server.sockets[0].getsockname()[1], flush=True)
    loop.run_forever()


if __name__ == "__main__":
    sys.exit(main())
