"""tests/page_test.py PAGE...: tests in a browser that the demonstration's pages show every picture
without an error, at the width of a phone and of a desktop, that their dividing lines move, and that
nothing is hidden without script.
"""
import pathlib
import re
import sys
import unittest

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

PAGES = [pathlib.Path(page).resolve() for page in sys.argv[1:]]
PHONE, DESK = 360, 1400

# Each picture: whether it is decoded, and the width at which it is shown.
PICTURES = """[...document.images].map(i => ({
    width: i.complete && i.naturalHeight > 0 ? i.naturalWidth : 0,
    shown: i.getBoundingClientRect().width, left: i.getBoundingClientRect().left}))"""


def browser():
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    # In a container there is neither a sandbox for root nor much shared memory.
    for argument in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--disable-gpu"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=webdriver.chrome.service.Service("/usr/bin/chromedriver"), options=options)


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def open(self, page, width, has_script=True):
        command = self.browser.execute_cdp_cmd
        command("Emulation.setDeviceMetricsOverride",
                {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": width == PHONE})
        command("Emulation.setScriptExecutionDisabled", {"value": not has_script})
        self.browser.get(page.as_uri())

    def evaluate(self, expression):
        answer = self.browser.execute_cdp_cmd(
            "Runtime.evaluate", {"expression": expression, "returnByValue": True, "awaitPromise": True})
        self.assertNotIn("exceptionDetails", answer)
        return answer["result"].get("value")

    def pictures(self):
        self.evaluate("Promise.all([...document.images].map(i => i.decode().catch(() => 0))).then(() => 0)")
        return self.evaluate(PICTURES)

    def test_shows_every_picture_at_every_width(self):
        for page in PAGES:
            for width in (PHONE, DESK):
                with self.subTest(page=page, width=width):
                    self.open(page, width)
                    pictures = self.pictures()
                    self.assertGreater(len(pictures), 100)
                    for picture in pictures:
                        self.assertGreater(picture["width"], 0)
                        self.assertGreater(picture["shown"], 0)
                    self.assertLessEqual(self.evaluate("document.documentElement.scrollWidth"), width)
                    self.assertEqual(self.browser.get_log("browser"), [])

    def test_line_moves_by_keys_and_by_finger(self):
        self.open(PAGES[0], PHONE)
        slider = self.browser.find_element(By.CSS_SELECTOR, ".pair input")
        pair = slider.find_element(By.XPATH, "..")
        shown = lambda: pair.find_element(By.CSS_SELECTOR, ".before img").value_of_css_property("clip-path")
        slider.send_keys(Keys.END)
        self.assertEqual(shown(), "inset(0px 0% 0px 0px)")
        self.browser.execute_script("arguments[0].scrollIntoView({block: 'center'})", slider)
        place = slider.rect
        top = place["y"] - self.evaluate("scrollY")
        before = shown()
        point = {"x": place["x"] + place["width"] / 4, "y": top + place["height"] / 2}
        self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {"type": "touchStart", "touchPoints": [point]})
        self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {"type": "touchEnd", "touchPoints": []})
        self.assertNotEqual(shown(), before)

    def test_hides_nothing_without_script(self):
        self.open(PAGES[0], DESK, has_script=False)
        self.assertFalse(self.evaluate("document.documentElement.classList.contains('js')"))
        self.assertTrue(all(picture["width"] > 0 for picture in self.pictures()))
        edges = self.evaluate("""[...document.querySelectorAll('.pair')].map(p => [
            p.querySelector('.before').getBoundingClientRect().right,
            p.querySelector('.after').getBoundingClientRect().left])""")
        self.assertGreater(len(edges), 30)
        for before, after in edges:
            self.assertLess(before, after)

    def test_needs_nothing_else(self):
        for page in PAGES:
            text = page.read_text(encoding="utf-8")
            self.assertEqual(re.findall(r'(?:src|href)="(?!data:|#)[^"]{0,80}|url\([^)]{0,80}|@import', text), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
