# SPDX-License-Identifier: MIT
"""A virtual desktop, the real launcher on it, and eyes and hands to use both from outside."""
