#!/usr/bin/python3
"""A POP3 server of the alert tests, just enough for a log-in before SMTP.

Listens on 127.0.0.1, prints "PORT <n>", answers CAPA, USER, PASS, STAT, LIST, UIDL,
NOOP and QUIT of an empty mailbox, and writes every log-in as a JSON line to --out.
Ends by itself after --lifetime seconds.
"""
import argparse
import asyncio
import json
import os
import sys
import threading


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--out", required=True)
    p.add_argument("--user", required=True)
    p.add_argument("--password", required=True)
    p.add_argument("--lifetime", type=float, default=60)
    a = p.parse_args()
    threading.Timer(a.lifetime, lambda: os._exit(0)).start()

    async def session(reader, writer):
        user = None
        writer.write(b"+OK test POP3 ready\r\n")
        while True:
            line = await reader.readline()
            if not line:
                break
            command, _, argument = line.decode(errors="replace").strip().partition(" ")
            command = command.upper()
            if command == "CAPA":
                writer.write(b"+OK\r\nUSER\r\nUIDL\r\n.\r\n")
            elif command == "USER":
                user = argument
                writer.write(b"+OK\r\n")
            elif command == "PASS":
                ok = user == a.user and argument == a.password
                with open(a.out, "a", encoding="utf-8") as f:
                    f.write(json.dumps({"user": user, "ok": ok}) + "\n")
                writer.write(b"+OK logged in\r\n" if ok else b"-ERR invalid login\r\n")
            elif command == "STAT":
                writer.write(b"+OK 0 0\r\n")
            elif command in ("LIST", "UIDL"):
                writer.write(b"+OK 0 messages\r\n.\r\n")
            elif command == "NOOP":
                writer.write(b"+OK\r\n")
            elif command == "QUIT":
                writer.write(b"+OK bye\r\n")
                await writer.drain()
                break
            else:
                writer.write(b"-ERR unknown command\r\n")
            await writer.drain()
        writer.close()

    loop = asyncio.new_event_loop()
    asyncio.set_event_loop(loop)
    server = loop.run_until_complete(asyncio.start_server(session, "127.0.0.1", 0))
    print("PORT", server.sockets[0].getsockname()[1], flush=True)
    loop.run_forever()


if __name__ == "__main__":
    sys.exit(main())
