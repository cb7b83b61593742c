#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the application bundle for a Mac is made of, as far as that can be looked at without one.

usage: mac_bundle_test.py SOURCE_FOLDER BUILD_FOLDER VERSION BUILD_NUMBER
"""
import json
import pathlib
import plistlib
import re
import struct
import sys
import unittest

SOURCE, BUILD = (pathlib.Path(folder) for folder in sys.argv[1:3])
VERSION, BUILD_NUMBER = sys.argv[3:5]
MADE = BUILD / 'packaging/macos'


def property_list(path):
    with open(path, 'rb') as file:
        return plistlib.load(file)


def picture_size(path):
    """Width, height, bits of a channel and kind of the colours of a PNG file."""
    head = path.read_bytes()[:26]
    assert head[:8] == b'\x89PNG\r\n\x1a\n' and head[12:16] == b'IHDR', path
    return struct.unpack('>IIBB', head[16:26])


class InfoList(unittest.TestCase):
    info = property_list(MADE / 'Info.plist')

    def test_names_an_agent_without_a_dock_icon(self):
        self.assertIs(self.info['LSUIElement'], True)
        self.assertEqual(self.info['CFBundlePackageType'], 'APPL')
        self.assertEqual(self.info['NSPrincipalClass'], 'NSApplication')

    def test_has_the_identifier_by_which_permissions_are_remembered(self):
        self.assertEqual(self.info['CFBundleIdentifier'], 'app.pimloft.Pimloft')

    def test_names_the_program_and_the_icon_that_the_build_makes(self):
        build = (SOURCE / 'packaging/macos/CMakeLists.txt').read_text()
        self.assertIn(f'OUTPUT_NAME {self.info["CFBundleExecutable"]}\n', build)
        self.assertIn(f'/{self.info["CFBundleIconFile"]}.icns)', build)

    def test_has_the_version_of_the_project(self):
        self.assertEqual(self.info['CFBundleShortVersionString'], VERSION)
        self.assertEqual(self.info['CFBundleVersion'], BUILD_NUMBER)

    def test_asks_for_the_system_that_the_program_is_built_for(self):
        presets = json.loads((SOURCE / 'CMakePresets.json').read_text())['configurePresets']
        macos = next(preset for preset in presets if preset['name'] == 'macos')
        self.assertEqual(self.info['LSMinimumSystemVersion'], macos['cacheVariables']['CMAKE_OSX_DEPLOYMENT_TARGET'])

    def test_tells_the_user_why_it_controls_other_programs(self):
        self.assertRegex(self.info['NSAppleEventsUsageDescription'], r'^Pimloft .*Finder.*players.*\.$')

    def test_asks_for_nothing_else(self):
        reasons = [key for key in self.info if key.endswith('UsageDescription')]
        self.assertEqual(reasons, ['NSAppleEventsUsageDescription'])

    def test_leaves_no_place_unfilled(self):
        self.assertNotRegex((MADE / 'Info.plist').read_text(), '@|<string></string>')


class Entitlements(unittest.TestCase):
    def test_are_apple_events_alone(self):
        self.assertEqual(property_list(SOURCE / 'packaging/macos/Pimloft.entitlements'),
                         {'com.apple.security.automation.apple-events': True})

    def test_are_what_the_bundle_is_signed_with(self):
        script = (SOURCE / 'packaging/macos/package').read_text()
        signatures = re.findall(r'codesign --force (?:.*\\\n)?.*', script)
        self.assertEqual(len(signatures), 2)
        for signature in signatures:
            self.assertIn('--entitlements packaging/macos/Pimloft.entitlements "$app"', signature)


class IconSet(unittest.TestCase):
    def test_has_every_size_for_plain_and_for_fine_screens(self):
        pictures = {path.name: picture_size(path) for path in (MADE / 'Pimloft.iconset').iterdir()}
        wanted = {}
        for side in (16, 32, 128, 256, 512):
            wanted[f'icon_{side}x{side}.png'] = (side, side, 8, 6)
            wanted[f'icon_{side}x{side}@2x.png'] = (2 * side, 2 * side, 8, 6)
        self.assertEqual(pictures, wanted)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
