
[Software\Orvex\Tidewell\Colors]
"HighlightBgClr"=dword:255

[Software\Orvex\Tidewell\Fonts]
"FontGenerallfWeight"=dword:700

[::Categories::]
"Category"="Дом"
"FiltersFlag"=dword:0
"X"=dword:1
"Color"=dword:-1
