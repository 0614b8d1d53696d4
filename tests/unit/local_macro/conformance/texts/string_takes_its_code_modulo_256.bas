' A character code beyond 255 counts by its low byte.
'> AA
Sub main()
    Debug.Print String(2, 321)
End Sub
