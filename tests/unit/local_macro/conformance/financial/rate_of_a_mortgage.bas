' Rate finds small rates over many periods, and those of payments at the beginning.
'> 0.005
'> 0.01
Sub main()
    Debug.Print "" & Round(Rate(360, -599.5505251527569, 100000), 8)
    Debug.Print "" & Round(Rate(12, Pmt(0.01, 12, 1000, 0, 1), 1000, 0, 1), 8)
End Sub
