#!/usr/bin/python3
"""A mail server for the tests, on the loopback address, and a reader of what it was given.

  mailserver.py serve FOLDER [--security none|starttls|tls] [--login NAME:PASSWORD]
                             [--fail-every N] [--drop-every N]
  mailserver.py read FOLDER

serve prints its port, and lays each mail that it takes into FOLDER as a file of its own, with its
envelope beside it. It fails every N-th mail with a temporary answer, or takes it and then drops the
line without an answer. read prints, as JSON, what Python's own parser makes of the mails.
"""

import argparse
import asyncio
import email
import email.policy
import hashlib
import json
import ssl
import sys
import time
from pathlib import Path


def serve(arguments):
    from aiosmtpd.smtp import SMTP, AuthResult, LoginPassword

    folder = Path(arguments.folder)

    class Keep:
        seen = 0

        async def handle_DATA(self, server, session, envelope):
            Keep.seen += 1
            time.sleep(arguments.pause)
            if arguments.fail_every and Keep.seen % arguments.fail_every == 0:
                return "451 4.3.0 Try again later"
            name = f"{time.time_ns()}-{Keep.seen}"
            (folder / f"{name}.json").write_text(json.dumps(
                {"from": envelope.mail_from, "to": envelope.rcpt_tos,
                 "tls": server.transport.get_extra_info("ssl_object") is not None, "login": bool(session.authenticated)}))
            part = folder / f"{name}.part"
            part.write_bytes(envelope.original_content)
            part.rename(folder / f"{name}.eml")
            if arguments.drop_every and Keep.seen % arguments.drop_every == 0:
                server.transport.abort()
            return "250 2.0.0 taken"

    def check(server, session, envelope, mechanism, data):
        name, password = arguments.login.split(":")
        good = isinstance(data, LoginPassword) and data == LoginPassword(name.encode(),
                                                                        password.encode())
        return AuthResult(success=good, handled=False)

    context = None
    if arguments.security != "none":
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain(folder / "cert.pem", folder / "key.pem")
    rules = {"decode_data": False}
    if arguments.login:
        rules |= {"authenticator": check, "auth_required": True,
                  "auth_require_tls": arguments.security == "starttls"}
    if arguments.security == "starttls":
        rules |= {"tls_context": context, "require_starttls": True}

    async def run():
        loop = asyncio.get_running_loop()
        server = await loop.create_server(
            lambda: SMTP(Keep(), loop=loop, **rules), "127.0.0.1", arguments.port,
            ssl=context if arguments.security == "tls" else None)
        print(server.sockets[0].getsockname()[1], flush=True)
        await loop.run_in_executor(None, sys.stdin.read)
        server.close()

    asyncio.run(run())


def read(arguments):
    mails = []
    for path in sorted(Path(arguments.folder).glob("*.eml")):
        raw = path.read_bytes()
        mail = email.message_from_bytes(raw, policy=email.policy.default)
        files = list(mail.iter_attachments())
        body = mail.get_body(preferencelist=("plain",))
        mails.append({
            "envelope": json.loads(path.with_suffix(".json").read_text()),
            "headers": sorted(name.lower() for name in mail.keys()),
            "from": str(mail["From"]), "to": str(mail["To"]),
            "addresses": [one.addr_spec for one in mail["To"].addresses],
            "name": mail["To"].addresses[0].display_name if mail["To"].addresses else "",
            "subject": str(mail["Subject"]), "id": str(mail["Message-ID"]),
            "date": mail["Date"].datetime.isoformat(),
            "text": body.get_content().replace("\r\n", "\n") if body else None,
            "files": [{"name": one.get_filename(), "type": one.get_content_type(),
                       "sha": hashlib.sha256(one.get_content() if isinstance(
                           one.get_content(), bytes) else one.get_content().encode()).hexdigest()}
                      for one in files],
            "defects": len(mail.defects),
            "longest": max(len(line) for line in raw.split(b"\r\n")),
            "bare": raw.replace(b"\r\n", b"").count(b"\n"),
        })
    print(json.dumps(mails))


parser = argparse.ArgumentParser()
parser.add_argument("what", choices=["serve", "read"])
parser.add_argument("folder")
parser.add_argument("--security", default="none")
parser.add_argument("--login")
parser.add_argument("--port", type=int, default=0)
parser.add_argument("--pause", type=float, default=0)
parser.add_argument("--fail-every", type=int)
parser.add_argument("--drop-every", type=int)
arguments = parser.parse_args()
serve(arguments) if arguments.what == "serve" else read(arguments)
