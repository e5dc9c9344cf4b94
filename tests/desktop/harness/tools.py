# SPDX-License-Identifier: MIT
"""What the tests need of the machine."""
import os
import shutil
import unittest


def leave_out(reason):
    """Skips the tests that the machine cannot do; where nothing may be missing, fails."""
    if os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        raise RuntimeError(reason)
    raise unittest.SkipTest(reason)


def require(*tools):
    """Leaves the tests out that need these programs, where they are missing."""
    missing = [str(tool) for tool in tools if not shutil.which(str(tool))]
    if missing:
        leave_out(f"missing: {', '.join(missing)}")
