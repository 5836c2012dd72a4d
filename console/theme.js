// Before the first paint: the colours that the user chose instead of the system's.
{
  const theme = localStorage.getItem("lmq.theme");
  if (theme === "dark" || theme === "light") document.documentElement.dataset.theme = theme;
}
