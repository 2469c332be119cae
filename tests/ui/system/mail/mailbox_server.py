"""Takes mail for smith.example at a Unix socket and delivers it into a Maildir, until its input ends."""

import sys

try:
    from aiosmtpd.controller import UnixSocketController
    from aiosmtpd.handlers import Mailbox
except ImportError:
    print("missing", flush=True)
    sys.exit(1)


class Supplier(Mailbox):
    async def handle_RCPT(self, server, session, envelope, address, options):
        if not address.endswith("@smith.example"):
            return "550 no such mailbox here"
        envelope.rcpt_tos.append(address)
        return "250 OK"


controller = UnixSocketController(Supplier(sys.argv[2]), unix_socket=sys.argv[1])
controller.start()
print("ready", flush=True)
sys.stdin.read()
controller.stop()
