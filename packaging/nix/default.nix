# nix-build packaging/nix: made of this tree. Parsed by nix-instantiate; no Nix system has built it yet. The variables with
# which the wrapper leads Qt to its plugins reach what the menu starts, too.
{ pkgs ? import <nixpkgs> { } }:

pkgs.stdenv.mkDerivation {
  pname = "zanthe-vell";
  version = "0.10.0";
  src = pkgs.lib.cleanSource ../..;

  nativeBuildInputs = with pkgs; [ cmake gettext ninja pkg-config librsvg po4a wayland-scanner qt6.wrapQtAppsHook ];
  buildInputs = with pkgs; [
    qt6.qtbase
    qt6.qtsvg
    qt6.qtwayland
    expat
    glib
    icu
    libplist
    libsodium
    libxkbcommon
    nlohmann_json
    wayland
    xorg.libxcb
  ];

  cmakeFlags = [ "-DZV_TESTS=OFF" "-DZV_PACKAGED=ON" ];

  meta = with pkgs.lib; {
    description = "A menu of your own making in the panel";
    homepage = "https://zanthevell.org";
    license = licenses.mit;
    platforms = platforms.linux;
    mainProgram = "zanthe-vell";
  };
}
