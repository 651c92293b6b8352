"""Takes uploads for the download station of the tests: upload_station.py <port> <folder>

Each part of a form that is posted becomes a file of the folder, under the part's name. The answer is the text of
the file "answer" there."""

import http.server
import pathlib
import re
import sys

FOLDER = pathlib.Path(sys.argv[2])


def parts(body, boundary):
    """Name and content of each part."""
    for part in body.split(b"--" + boundary)[1:-1]:
        head, _, content = part.removeprefix(b"\r\n").partition(b"\r\n\r\n")
        yield re.search(rb'name="(\w+)"', head)[1].decode(), content.removesuffix(b"\r\n")


class Station(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
        boundary = re.search(r"boundary=(\w+)", self.headers["Content-Type"])[1].encode()
        for name, content in parts(body, boundary):
            (FOLDER / name).write_bytes(content)
        answer = (FOLDER / "answer").read_bytes()
        self.send_response(200)
        self.send_header("Content-Length", str(len(answer)))
        self.end_headers()
        self.wfile.write(answer)

    def log_message(self, *_):
        pass


http.server.HTTPServer(("127.0.0.1", int(sys.argv[1])), Station).serve_forever()
