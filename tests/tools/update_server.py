#!/usr/bin/env python3
"""The update server of the tests, on 127.0.0.1 only.

    update_server.py FOLDER SECONDS

Serves the files of FOLDER, plus three answers that no folder can give:
  /slow/...    the file FOLDER/slow/... in small pieces with pauses between them
  /broken/...  the start of the file, then the connection closes (a download that breaks off)
  /hang/...    accepts the request and never answers
Prints "PORT <n>" once it listens on a free port, and ends by itself after SECONDS.
"""

import http.server
import os
import sys
import threading
import time


class Handler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *args):
        pass

    def do_GET(self):
        case = self.path.split("/")[1] if self.path.count("/") > 1 else ""
        if case == "hang":
            time.sleep(30)
            return
        if case not in ("slow", "broken"):
            return super().do_GET()
        path = self.translate_path(self.path)
        if not os.path.isfile(path):
            self.send_error(404)
            return
        with open(path, "rb") as f:
            body = f.read()
        self.send_response(200)
        self.send_header("Content-Type", "application/octet-stream")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        if case == "broken":
            self.wfile.write(body[: len(body) // 3])
            self.wfile.flush()
            self.close_connection = True
            return
        for start in range(0, len(body), 4096):
            self.wfile.write(body[start : start + 4096])
            self.wfile.flush()
            time.sleep(0.05)


def main():
    folder, seconds = sys.argv[1], float(sys.argv[2])
    os.chdir(folder)
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    threading.Timer(seconds, lambda: os._exit(0)).start()
    print("PORT", server.server_address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
