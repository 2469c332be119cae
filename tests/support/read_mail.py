"""Reads a message with Python's own parser and writes its parts, in UTF-8 and separated by lines of "--"."""

import email
import email.policy
import sys

message = email.message_from_bytes(sys.stdin.buffer.read(), policy=email.policy.default)
parts = [
    ",".join(message.keys()),
    str(message["From"]),
    ",".join(address.addr_spec for address in message["To"].addresses),
    str(message["Subject"]),
    message["Date"].datetime.isoformat() if message["Date"] else "",
    str(message["Message-ID"]),
    message.get_content_type(),
    message.get_content_charset(),
    str(message["X-RcptTo"]),
    str(len(message.defects) + sum(len(message[key].defects) for key in message.keys())),
    message.get_content(),
]
sys.stdout.buffer.write("\n--\n".join(parts).encode("utf-8"))
