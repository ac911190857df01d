// A pair of pictures becomes one, with a line to move: the picture before stands left of it.
for (const pair of document.querySelectorAll(".pair")) {
  const line = document.createElement("span");
  line.className = "line";
  const slider = document.createElement("input");
  slider.type = "range";
  slider.value = 50;
  slider.setAttribute("aria-label", "How much of the picture before is shown, in percent");
  const move = () => pair.style.setProperty("--cut", slider.value + "%");
  slider.addEventListener("input", move);
  move();
  pair.append(line, slider);
}
document.documentElement.classList.add("js");
