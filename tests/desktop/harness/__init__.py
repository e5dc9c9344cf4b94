# SPDX-License-Identifier: MIT
"""A private desktop for tests: its own X server, window manager, buses and home, and eyes and hands on it."""
