# A cask for a tap of one's own. Its syntax is checked; no Mac has installed it, as none has built the image yet.
# Who publishes puts their own addresses and the image's sum (shasum -a 256) here.
cask "zanthe-vell" do
  version "0.10.0"
  sha256 :no_check

  url "https://zanthevell.org/releases/Zanthe%20Vell%20#{version}.dmg"
  name "Zanthe Vell"
  desc "Menu of your own making in the menu bar"
  homepage "https://zanthevell.org/"

  auto_updates true
  depends_on macos: ">= :ventura"

  app "Zanthe Vell.app"
  binary "#{appdir}/Zanthe Vell.app/Contents/MacOS/Zanthe Vell", target: "zanthe-vell"
  manpage "#{appdir}/Zanthe Vell.app/Contents/Resources/man/man1/zanthe-vell.1"

  uninstall quit:       "org.zanthevell.ZantheVell",
            login_item: "Zanthe Vell"

  # The user's own items (~/Library/Zanthe Vell Items) stay.
  zap trash: [
    "~/Library/Application Support/Zanthe Vell",
    "~/Library/Preferences/org.zanthevell.ZantheVell.plist",
  ]
end
