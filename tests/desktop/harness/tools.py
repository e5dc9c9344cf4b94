# SPDX-License-Identifier: MIT
"""What the tests need of the machine."""
import os
import shutil
import unittest


def require(*tools):
    """Skips the tests that need these programs where they are missing; where nothing may be missing, fails."""
    missing = [str(tool) for tool in tools if not shutil.which(str(tool))]
    if missing and os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        raise RuntimeError(f"missing: {', '.join(missing)}")
    if missing:
        raise unittest.SkipTest(f"missing: {', '.join(missing)}")
